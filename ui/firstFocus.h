#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

/** Gives one control of a page the keyboard focus whenever the page comes up, unless a message box is in front. */
class firstFocus : private juce::ComponentListener
{
public:
    /** Owns neither; both outlive this. */
    firstFocus (juce::Component& pageOfControl, juce::Component& controlToFocus);
    ~firstFocus() override;

private:
    void componentVisibilityChanged (juce::Component&) override;

    juce::Component &page, &control;

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (firstFocus)
};
