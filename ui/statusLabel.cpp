#include "ui/statusLabel.h"
#include <cmath>

static constexpr int longestShownName = 1000; // painting costs what a text is long, not what of it shows

void statusLabel::setStatus (const juce::String& textBefore, const juce::String& nameInFull,
                             const juce::String& textAfter)
{
    before = textBefore;
    name = nameInFull.substring (0, longestShownName);
    after = textAfter;
    setText (before + nameInFull + after, juce::dontSendNotification);
}

void statusLabel::paint (juce::Graphics& g)
{
    const auto shownFont = getFont();
    auto area = getBorderSize().subtractedFrom (getLocalBounds());
    const auto widthOf = [&] (const juce::String& text) {
        return (int) std::ceil (shownFont.getStringWidthFloat (text));
    };
    const auto draw = [&] (const juce::String& text, int width) {
        g.drawText (text, area.removeFromLeft (width), juce::Justification::centredLeft, true);
    };

    g.setFont (shownFont);
    g.setColour (findColour (textColourId));
    draw (before, widthOf (before));
    draw (name, juce::jmin (widthOf (name), area.getWidth() - widthOf (after)));
    draw (after, area.getWidth());
}
