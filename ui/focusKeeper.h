#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

/** Gives the keyboard focus back, after a message box, to the control that had it when this was made, or else to
    whatever in the window can have it. The framework by itself forgets that control when the box takes the focus
    before the system has told the window of its loss. */
class focusKeeper
{
public:
    focusKeeper();
    ~focusKeeper();

private:
    const juce::Component::SafePointer<juce::Component> window, focused;

    JUCE_DECLARE_NON_COPYABLE (focusKeeper)
};
