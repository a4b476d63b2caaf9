#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

/** The text box of a slider. Turning the mouse wheel over it does not reach the slider, and screen readers see the
    slider only. */
class SliderLabelCompKlangora : public juce::Label
{
public:
    void mouseWheelMove (const juce::MouseEvent&, const juce::MouseWheelDetails&) override;

private:
    std::unique_ptr<juce::AccessibilityHandler> createAccessibilityHandler() override;
};
