#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

/** Draws the rounded, shaded body of a button or box.

    @param area         outer edge, in the context's units; nothing is drawn below 2 x 2
    @param base         colour of the body; its own alpha counts
    @param shading      strength of the light from above: 0 is flat, 1 is the skin's
    @param cornerSize   radius of the corners, negative for the skin's
    @param edge         strength of the light rim and of the line inside it, 0 to 1
    @param highlighted  under the mouse: a brighter rim
    @param pressed      dark, in the shadow of its rim: the body looks pushed in */
void drawShadedBody (juce::Graphics&, juce::Rectangle<float> area, juce::Colour base, float shading,
                     float cornerSize, float edge, bool highlighted, bool pressed);
