#pragma once

#include <juce_graphics/juce_graphics.h>

/** Size of the largest file that decodePicture takes, bytes. */
constexpr int largestPictureFile = 32 * 1024 * 1024;

/** Decodes a JPEG or PNG picture from the stream's position on. A file that is larger than 32 MB, or whose header
    announces more than 8192 pixels a side or more than there is memory for, never reaches the decoder. Returns a null
    image for these, for a file that ends too early and for whatever else is not a picture. */
juce::Image decodePicture (juce::InputStream& stream);
