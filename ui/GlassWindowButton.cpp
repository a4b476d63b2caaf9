#include "ui/GlassWindowButton.h"

lookAndFeelKlangora::GlassWindowButton::GlassWindowButton (const juce::String& name,
                                                           juce::Colour buttonColour,
                                                           const juce::Path& normal,
                                                           const juce::Path& toggled)
    : Button (name),
      colour (buttonColour),
      normalShape (normal),
      toggledShape (toggled)
{}

void lookAndFeelKlangora::GlassWindowButton::paintButton (juce::Graphics& g, bool highlighted, bool down)
{
    constexpr float rim = 1.0f, glyphShare = 0.42f;
    const auto alpha = isEnabled() ? 1.0f : 0.4f;
    const auto diameter = 0.8f * (float) juce::jmin (getWidth(), getHeight());

    if (diameter < 4.0f)
        return;

    const auto disc = getLocalBounds().toFloat().withSizeKeepingCentre (diameter, diameter);
    auto glass = colour.withMultipliedAlpha (alpha);

    if (highlighted)
        glass = glass.withMultipliedBrightness (1.2f);

    const auto top = glass.brighter (0.15f), bottom = glass.darker (0.5f);
    g.setGradientFill (juce::ColourGradient::vertical (down ? bottom : top, disc.getY(), down ? top : bottom,
                                                       disc.getBottom()));
    g.fillEllipse (disc);

    g.setColour (juce::Colours::white.withAlpha ((highlighted ? 0.7f : 0.35f) * alpha));
    g.drawEllipse (disc.reduced (0.5f * rim), rim);

    const auto& shape = getToggleState() ? toggledShape : normalShape;
    const auto glyph = disc.withSizeKeepingCentre (glyphShare * diameter, glyphShare * diameter);
    g.setColour (juce::Colours::white.withAlpha (0.9f * alpha));
    g.fillPath (shape, shape.getTransformToScaleToFit (glyph, true));
}
