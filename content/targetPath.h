#pragma once

#include <juce_core/juce_core.h>
#include <optional>

/** The one gate that an item's target passes before it touches the disk: the path of its file, or nothing where the
    target is refused. A target is an installation folder, a slash and the relative path that the catalogue gave,
    whose parts are separated by slashes or backslashes; in what is returned they are all slashes.

    Refused is a target that is not below the installation folder, or whose installation folder is no absolute path;
    one with a part that is empty (which covers trailing separators), that ends in a point or a blank (which covers "."
    and ".."; Windows drops those endings), that holds a colon (drives, alternate streams) or a control character, that
    is the name of a file that is being written (see temporaryFile), or, on Windows, that is the name of a device
    ("NUL", "com1.sa").

    Links inside the installation folder are followed: who can make one there can write there anyway. */
std::optional<juce::String> targetPath (const juce::String& target, const juce::String& installationFolder);

/** Whether Windows opens a device under this name, wherever it stands and whatever extension follows. */
bool isDeviceName (const juce::String& part);
