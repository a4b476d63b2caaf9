#pragma once

#include "ui/pageLabel.h"

/** A line that names what is going on. A name that is too long for it is shown shortened, so that what follows stays in
    sight; the label's text has all of it. */
class statusLabel : public pageLabel
{
public:
    /** The text becomes the three, one after the other. */
    void setStatus (const juce::String& textBefore, const juce::String& nameInFull,
                    const juce::String& textAfter);

private:
    void paint (juce::Graphics&) override;

    juce::String before, name, after;
};
