#pragma once

#include <juce_gui_basics/juce_gui_basics.h>
#include <vector>

/** Tells on a page, above the right end of a password field, that Caps Lock is on while the field has the keyboard. */
class capsLockHint : private juce::Timer, private juce::FocusChangeListener
{
public:
    /** Owns none of them; all outlive this. */
    capsLockHint (juce::Component& pageOfFields, std::vector<juce::Component*> passwordFields);
    ~capsLockHint() override;

    /** To be called when the page is painted. */
    void paint (juce::Graphics&) const;

private:
    void globalFocusChanged (juce::Component* focused) override;
    void timerCallback() override;
    void tellAt (juce::Component* field);

    juce::Component& page;
    const std::vector<juce::Component*> fields;
    juce::Component* focusedField = nullptr;
    juce::Component* toldAt = nullptr; // where the hint shows

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (capsLockHint)
};
