#pragma once

#include <juce_core/juce_core.h>

/** The one gate that a catalogue's target passes before it touches the disk: whether it is a relative path that
    stays below the folder it is appended to, on every platform that installs the same catalogue.

    Slashes and backslashes separate its parts. Refused is a path with a part that is empty (which covers absolute
    paths and trailing separators), that ends in a point or a blank (which covers "." and ".."; Windows drops those
    endings), that holds a colon (drives, alternate streams) or a control character, or that Windows takes for a
    device ("NUL", "com1.sa").

    Links inside the installation folder are followed: who can make one there can write there anyway. */
bool isAllowedTarget (const juce::String& relativePath);
