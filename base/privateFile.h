#pragma once

#include <juce_core/juce_core.h>

/** Makes an empty file that nobody but the user who runs the program can open, from its first moment on. False when
    that fails, or when there is such a file already. */
bool createPrivateFile (const juce::File& file);
