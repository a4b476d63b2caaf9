#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

/** Operations on the pixels of 32-bit premultiplied ARGB images. Each one clips its area to the images first and
    then works on whole rows; results are rounded and clamped to 0..255. A null image, or one of another pixel
    format, is left as it is. */

/** Lays `source` over `destination` with its top-left corner at `position`: each channel becomes
    source + destination x (1 - source alpha / 255). */
void combineOver (juce::Image& destination, const juce::Image& source, juce::Point<int> position = {});

/** Lays a colour over what an image shows and keeps the image's own alpha: opaque pixels stay opaque, and
    transparent ones stay untouched. */
void tintImage (juce::Image& image, juce::Colour tint);

/** Replaces the pixels of an area, alpha included. */
void fillImage (juce::Image& image, juce::Colour colour, juce::Rectangle<int> area);

/** Replaces every pixel of an image, alpha included. */
void fillImage (juce::Image& image, juce::Colour colour);

/** Whether nothing can be seen through an image: not so of a null image or one of another pixel format. */
bool isSolid (const juce::Image& image);
