#include "ui/drawShadedBody.h"

void drawShadedBody (juce::Graphics& g, juce::Rectangle<float> area, juce::Colour base, float shading,
                     float cornerSize, float edge, bool highlighted, bool pressed)
{
    constexpr float skinCornerSize = 4.0f, rim = 1.0f;
    constexpr float light = 0.14f, shade = 0.22f; // share of white at the top and of black at the bottom
    constexpr float rimAlpha = 0.6f, innerLightAlpha = 0.22f, litRimAlpha = 0.45f;

    if (area.getWidth() < 2.0f || area.getHeight() < 2.0f)
        return;

    const auto alpha = base.getFloatAlpha();
    const auto corner = cornerSize < 0.0f ? skinCornerSize : cornerSize;
    const auto lit = base.interpolatedWith (juce::Colours::white.withAlpha (alpha), light * shading);
    const auto shaded = base.interpolatedWith (juce::Colours::black.withAlpha (alpha), shade * shading);

    g.setGradientFill (juce::ColourGradient::vertical (pressed ? shaded : lit, area.getY(),
                                                       pressed ? lit : shaded, area.getBottom()));
    g.fillRoundedRectangle (area, corner);

    // A line just inside the rim, fading towards the middle: light, or the shadow of the rim when pressed.
    const auto inner = area.reduced (1.5f * rim);
    const auto line = pressed ? juce::Colours::black.withAlpha (rimAlpha * edge * alpha)
                              : juce::Colours::white.withAlpha (innerLightAlpha * edge * alpha);
    g.setGradientFill (
        juce::ColourGradient::vertical (line, inner.getY(), line.withAlpha (0.0f), inner.getCentreY()));
    g.drawRoundedRectangle (inner, juce::jmax (0.0f, corner - rim), rim);

    g.setColour (highlighted ? juce::Colours::white.withAlpha (litRimAlpha * edge * alpha)
                             : juce::Colours::black.withAlpha (rimAlpha * edge * alpha));
    g.drawRoundedRectangle (area.reduced (0.5f * rim), juce::jmax (0.0f, corner - 0.5f * rim), rim);
}
