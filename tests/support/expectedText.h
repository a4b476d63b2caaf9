#pragma once

#include <juce_core/juce_core.h>

/** The text of `tests/expected/NAME.txt`. */
juce::String loadExpected (const juce::String& name);

/** A text on one line, without what differs from build to build and from run to run: "STORE" and "FOLDER" stand for the
    store's address and the installation folder. */
juce::String plainLine (const juce::String& text);

/** Compares a text with that one, or with a part of it. A difference fails the test; what was found is written below the
    build folder, from where `scripts/accept-expected.sh` takes it. */
void checkExpected (const juce::String& name, const juce::String& text, const juce::String& part = {});
