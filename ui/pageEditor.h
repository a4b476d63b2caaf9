#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

/** A field of one line on a page. Its text is selected when it gets the focus; Escape and Return are the page's.

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
    juce::String filterNewText (juce::TextEditor&, const juce::String& newInput) override;

    const content kind;

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (pageEditor)
};
