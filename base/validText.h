#pragma once

#include <juce_core/juce_core.h>
#include <string>

/** The text that bytes from outside hold, up to their first zero byte. Well-formed UTF-8 comes out exactly as it
    is, a byte-order mark included; each byte that belongs to no well-formed sequence is read as a character of
    Windows-1252, so that a page of an older server stays legible.

    A juce::String that was made of damaged UTF-8 in another way can be read past its end: text that comes from
    the network or from a file goes through here first. */
juce::String validText (const void* bytes, size_t size);

/** A whole text from outside as well-formed UTF-8, zero bytes included, which a juce::String cannot hold. What starts
    with a byte-order mark of UTF-16 is decoded from that, everything else read as by validText; a byte-order mark is
    no part of the result. */
std::string decodedText (const void* bytes, size_t size);

/** Whether bytes are well-formed UTF-8. */
bool isValidText (const void* bytes, size_t size);
