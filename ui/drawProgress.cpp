#include "ui/drawProgress.h"
#include "ui/palette.h"

void drawProgress (juce::Graphics& g, juce::Rectangle<int> track, double share)
{
    const auto outline = track.toFloat();
    const auto corner = 0.5f * outline.getHeight();
    const auto inside = outline.reduced (1.0f);

    g.setColour (juce::Colour (palette::well));
    g.fillRoundedRectangle (outline, corner);
    g.setColour (juce::Colour (palette::edge));
    g.drawRoundedRectangle (outline.reduced (0.5f), corner, 1.0f);

    juce::Path shape;
    shape.addRoundedRectangle (inside, corner - 1.0f);
    const juce::Graphics::ScopedSaveState state (g);
    g.reduceClipRegion (shape);
    g.setColour (juce::Colour (palette::accent));
    g.fillRect (inside.withWidth ((float) juce::jlimit (0.0, 1.0, share) * inside.getWidth()));
}
