#pragma once

#include <juce_core/juce_core.h>

/** Opens a web address in the user's browser; nothing happens where there is none. */
void openInBrowser (const juce::String& address);
