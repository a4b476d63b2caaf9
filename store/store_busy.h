#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

/** A plain white page that stands in for another. Not part of the flow. */
class store_busy : public juce::Component
{
public:
    store_busy();

    void paint (juce::Graphics&) override;
    void resized() override;
};
