#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

/** A button for what must not start twice: a double click presses it once. */
class singlePressButton : public juce::TextButton
{
private:
    void mouseDown (const juce::MouseEvent& e) override
    {
        if (e.getNumberOfClicks() == 1)
            TextButton::mouseDown (e);
    }
};
