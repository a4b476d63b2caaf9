#include "ui/drawShadedBody.h"

void drawShadedBody (juce::Graphics& g, juce::Rectangle<float> area, juce::Colour base, float shading,
                     float cornerSize, float edge, bool highlighted, bool pressed)
{
    constexpr float skinCornerSize = 4.0f, rim = 1.0f;
    constexpr float light = 0.14f, shade = 0.22f; // share of white at the top and of black at the bottom
    constexpr float pressedShade = 0.72f, pressedDepth = 0.5f; // shares of black at the top and at the bottom
    constexpr float rimAlpha = 0.6f, litRimAlpha = 0.85f, innerLightAlpha = 0.15f, innerShadowAlpha = 0.8f;

    if (area.getWidth() < 2.0f || area.getHeight() < 2.0f)
        return;

    const auto alpha = base.getFloatAlpha();
    const auto corner = cornerSize < 0.0f ? skinCornerSize : cornerSize;
    const auto white = juce::Colours::white.withAlpha (alpha), black = juce::Colours::black.withAlpha (alpha);
    const auto top = pressed ? base.interpolatedWith (black, pressedShade * shading)
                             : base.interpolatedWith (white, light * shading);
    const auto bottom = base.interpolatedWith (black, (pressed ? pressedDepth : shade) * shading);

    g.setGradientFill (juce::ColourGradient::vertical (top, area.getY(), bottom, area.getBottom()));
    g.fillRoundedRectangle (area, corner);

    // A line just inside the rim, fading towards the middle: light, or the shadow of the rim when pressed.
    const auto inner = area.reduced (1.5f * rim);
    const auto line = pressed ? black.withMultipliedAlpha (innerShadowAlpha * edge)
                              : white.withMultipliedAlpha (innerLightAlpha * edge);
    g.setGradientFill (
        juce::ColourGradient::vertical (line, inner.getY(), line.withAlpha (0.0f), inner.getCentreY()));
    g.drawRoundedRectangle (inner, juce::jmax (0.0f, corner - rim), rim);

    g.setColour (white.withMultipliedAlpha ((highlighted ? litRimAlpha : rimAlpha) * edge));
    g.drawRoundedRectangle (area.reduced (0.5f * rim), juce::jmax (0.0f, corner - 0.5f * rim), rim);
}
