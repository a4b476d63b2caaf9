#pragma once

#include "ui/pageLabel.h"

/** A text on a page whose last word is a web address: a click on that opens it in the browser, a right click offers to
    copy it. Not a stop of the keyboard; screen readers find a link. */
class linkLabel : public pageLabel
{
public:
    using pageLabel::pageLabel;

    juce::String getAddress() const;
    juce::Rectangle<int> getAddressBounds() const;

private:
    void paint (juce::Graphics&) override;
    void textWasChanged() override;
    void mouseMove (const juce::MouseEvent&) override;
    void mouseDown (const juce::MouseEvent&) override;
    std::unique_ptr<juce::AccessibilityHandler> createAccessibilityHandler() override;
};
