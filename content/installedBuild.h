#pragma once

#include <juce_core/juce_core.h>
#include <optional>

/** The build number of what is installed at a path: a folder, else the packed archive path + ".sa", else a packed
    archive at the path itself. It is the integer at the start of that item's entry
    "buildnumber.txt", and 0 without one. Nothing when nothing is installed there; a plain file that is no valid
    archive counts as nothing, and so does what is neither a folder nor a plain file.

    An archive ".sa" of an unknown version is reported in a message box meanwhile. */
std::optional<int> installedBuild (const juce::String& path);
