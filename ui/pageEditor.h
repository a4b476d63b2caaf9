#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

/** A field of one line on a page. Its text is selected when it gets the focus, but not when the focus comes back with
    the window, as after a message box: typing goes on where it was. Escape and Return are the page's.

    What is typed or pasted goes in without line ends, and into a field for an address without blanks around it: what
    comes along with a copied text and cannot be seen. */
class pageEditor : public juce::TextEditor, private juce::TextEditor::InputFilter
{
public:
    enum class content
    {
        address,
        password
    };

    explicit pageEditor (content);

private:
    void focusGained (FocusChangeType) override;
    void focusLost (FocusChangeType) override;
    juce::String filterNewText (juce::TextEditor&, const juce::String& newInput) override;

    const content kind;
    bool focusMovedOn = true; // to another control, when it was lost last; not with the window

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (pageEditor)
};
