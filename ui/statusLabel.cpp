#include "ui/statusLabel.h"
#include <cmath>

void statusLabel::setStatus (const juce::String& textBefore, const juce::String& nameInFull,
                             const juce::String& textAfter)
{
    before = textBefore;
    name = nameInFull;
    after = textAfter;
    setText (before + name + after, juce::dontSendNotification);
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
