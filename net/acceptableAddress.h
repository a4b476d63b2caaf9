#pragma once

#include <juce_core/juce_core.h>

/** Whether a text can be an e-mail address: an at sign that is not its first character, and a last point that is
    not its last character and stands more than one character after the first at sign. */
bool isAcceptableAddress (const juce::String& text);
