#pragma once

#include <juce_core/juce_core.h>

/** A text as a value of a form-encoded body: letters, digits and _-.*!'() stay, every other byte of its UTF-8
    form becomes '%' and two upper-case hexadecimal digits. */
juce::String escapeFormText (const juce::String& text);

/** A part of an address as it can stand in a request line: blanks, control characters and bytes beyond ASCII
    become '%' and two upper-case hexadecimal digits, everything else stays. */
juce::String escapeAddressText (const juce::String& text);
