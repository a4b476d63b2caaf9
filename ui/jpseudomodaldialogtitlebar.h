#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

/** The bar above a dialog: its title, and in a window of its own the place to drag that window by. */
class jpseudomodaldialogtitlebar : public juce::Component
{
public:
    jpseudomodaldialogtitlebar (const juce::String& titleToShow, bool canDragWindow);

    void paint (juce::Graphics&) override;
    void mouseDown (const juce::MouseEvent&) override;
    void mouseDrag (const juce::MouseEvent&) override;

private:
    juce::String title;
    bool draggable;
    juce::Point<int> windowAtMouseDown, mouseAtMouseDown; // on the screen

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (jpseudomodaldialogtitlebar)
};
