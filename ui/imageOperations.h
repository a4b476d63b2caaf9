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

/** Draws the rounded, shaded body of a button or box.

    @param area         outer edge, in the context's units; nothing is drawn below 2 x 2
    @param base         colour of the body; its own alpha counts
    @param shading      strength of the light from above: 0 is flat, 1 is the skin's
    @param cornerSize   radius of the corners, negative for the skin's
    @param edge         strength of the dark rim and of the light line inside it, 0 to 1
    @param highlighted  under the mouse: a brighter rim
    @param pressed      the light turns over, so that the body looks pushed in */
void drawShadedBody (juce::Graphics&, juce::Rectangle<float> area, juce::Colour base, float shading,
                     float cornerSize, float edge, bool highlighted, bool pressed);
