#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

/** The file of a picture. It is told by its bytes, whatever its name says. */
inline juce::MemoryBlock encoded (const juce::Image& image)
{
    juce::MemoryOutputStream stream;
    juce::PNGImageFormat().writeImageToStream (image, stream);
    return stream.getMemoryBlock();
}
