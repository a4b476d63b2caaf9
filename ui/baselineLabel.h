#pragma once

#include "ui/pageLabel.h"

/** A text of one line that stands where its page wants it, so that texts of different sizes share a line to the pixel
    at every scale of the display. */
class baselineLabel : public pageLabel
{
public:
    using pageLabel::pageLabel;

    /** Where the text begins and the line that it stands on, both within the label. Its characters are drawn as wide as
        the font has them times `stretch`. */
    void standAt (float left, int baseline, float stretch = 1.0f);

    /** Leaves out the first characters when painting; those after them stay where they are. */
    void hideFirst (int numCharacters);

private:
    void paint (juce::Graphics&) override;

    float x = 0.0f, widthFactor = 1.0f;
    int y = 0, hidden = 0;
};
