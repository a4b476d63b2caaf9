#include "ui/pagePanel.h"
#include "ui/palette.h"

static constexpr float panelCorner = 5.0f;

/** From a group box's bounds to the outline that the framework draws, half way through the line of its title. */
static const juce::BorderSize<int> groupInset (9, 3, 3, 3);

void drawPagePanel (juce::Graphics& g, juce::Rectangle<int> area)
{
    g.setColour (juce::Colour (palette::pagePanel));
    g.fillRoundedRectangle (area.toFloat(), panelCorner);
    g.setColour (juce::Colour (palette::pagePanelEdge));
    g.drawRoundedRectangle (area.toFloat().reduced (0.5f), panelCorner, 1.0f);
}

void drawPagePanel (juce::Graphics& g, const juce::GroupComponent& group)
{
    drawPagePanel (g, groupInset.subtractedFrom (group.getBounds()));
}
