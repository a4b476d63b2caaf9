#include "ui/pagePanel.h"

static const juce::Colour panelShade (0x4d000000), panelEdge (0x1affffff);
static constexpr float panelCorner = 5.0f;

/** From a group box's bounds to the outline that the framework draws, half way through the line of its title. */
static const juce::BorderSize<int> groupInset (9, 3, 3, 3);

void drawPagePanel (juce::Graphics& g, juce::Rectangle<int> area)
{
    g.setColour (panelShade);
    g.fillRoundedRectangle (area.toFloat(), panelCorner);
    g.setColour (panelEdge);
    g.drawRoundedRectangle (area.toFloat().reduced (0.5f), panelCorner, 1.0f);
}

void drawPagePanel (juce::Graphics& g, const juce::GroupComponent& group)
{
    drawPagePanel (g, groupInset.subtractedFrom (group.getBounds()));
}
