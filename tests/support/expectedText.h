#pragma once

#include <juce_core/juce_core.h>

/** Compares a text with `tests/expected/NAME.txt`. A difference fails the test, is shown line by line, and is written
    below the build folder, from where `scripts/accept-expected.sh` takes it. */
void checkExpected (const juce::String& name, const juce::String& text);
