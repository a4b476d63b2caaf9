#pragma once

#include <juce_core/juce_core.h>

/** Keeps data unreadable at a glance: a Blowfish keystream in counter mode under one key that is compiled into
    the program. It hides, it does not protect: whoever has the program has the key.

    Safe from several threads as long as each passes its own counters. */

/** Scrambles or unscrambles `length` bytes in place; both are the same operation. The counters are advanced by
    length / 8 + 1 and wrap around. A length below 0 counts as 0. */
void applyKeystream (void* data, int length, juce::uint32& left, juce::uint32& right);

/** Printable form of a text: its UTF-8 bytes with a terminating zero, padded with zeros to a multiple of 8,
    scrambled, in juce::MemoryBlock's base-64 form ("size.characters"). */
juce::String scrambleText (const juce::String& text, juce::uint32 left, juce::uint32 right);

/** The text behind a printable form, up to its first zero byte, always valid text. Empty for a printable form
    that cannot be one; meaningless, but harmless, with other counters. */
juce::String unscrambleText (const juce::String& printable, juce::uint32 left, juce::uint32 right);
