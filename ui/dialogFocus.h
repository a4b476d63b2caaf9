#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

/** The keyboard focus in a dialog's overlay. Remembers the control that the user has chosen; while that one is
    disabled another has the focus in its place, so that keys always reach the dialog, and gives it back. */
class dialogFocus : private juce::FocusChangeListener, private juce::ComponentListener
{
public:
    explicit dialogFocus (juce::Component& overlayToWatch);
    ~dialogFocus() override;

    /** Hands the focus to the chosen control, or else to the first one of the dialog that can have it. When a
        disabled control leaves the dialog without any, to the bar. */
    void passOn (juce::Component& dialog);

private:
    void globalFocusChanged (juce::Component*) override;
    void componentEnablementChanged (juce::Component&) override;
    void choose (juce::Component*);
    void giveBack();

    juce::Component& overlay;
    juce::Component::SafePointer<juce::Component> chosen, standIn;

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (dialogFocus)
};
