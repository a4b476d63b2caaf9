#include "ui/SliderLabelCompKlangora.h"

void SliderLabelCompKlangora::mouseWheelMove (const juce::MouseEvent&, const juce::MouseWheelDetails&)
{}

std::unique_ptr<juce::AccessibilityHandler> SliderLabelCompKlangora::createAccessibilityHandler()
{
    return createIgnoredAccessibilityHandler (*this);
}
