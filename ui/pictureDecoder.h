#pragma once

#include <juce_graphics/juce_graphics.h>

/** Decodes a JPEG or PNG picture from the stream's position on. The whole file is looked over before it reaches the
    decoder: one that is not complete (to the end marker of a JPEG, the last chunk of a PNG), is larger than 32 MB,
    or announces more than 8192 pixels a side or 16 million in all, is no picture. Nothing is allocated on the word
    of such a header. Returns a null image for whatever is not a picture. */
juce::Image decodePicture (juce::InputStream& stream);
