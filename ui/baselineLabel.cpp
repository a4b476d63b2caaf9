#include "ui/baselineLabel.h"

void baselineLabel::standAt (float left, int baseline, float stretch)
{
    x = left;
    y = baseline;
    widthFactor = stretch;
    repaint();
}

void baselineLabel::hideFirst (int numCharacters)
{
    hidden = numCharacters;
    repaint();
}

void baselineLabel::paint (juce::Graphics& g)
{
    juce::GlyphArrangement glyphs;
    glyphs.addLineOfText (getFont().withHorizontalScale (widthFactor), getText(), x, (float) y);
    glyphs.removeRangeOfGlyphs (0, hidden);
    g.setColour (findColour (textColourId));
    glyphs.draw (g);
}
