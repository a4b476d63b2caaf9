#pragma once

#include <juce_graphics/juce_graphics.h>

/** Splits a text into lines of at most `width` pixels: at its line ends, at blanks, and inside words that are wider
    than a line, then preferably after a slash, a backslash or a hyphen. Empty lines stay; tabs count as blanks. */
juce::StringArray wrapText (const juce::String& text, const juce::Font& font, float width);
