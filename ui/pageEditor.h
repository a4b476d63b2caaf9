#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

/** A field of one line on a page. Its text is selected when it gets the focus; Escape and Return are the page's. */
class pageEditor : public juce::TextEditor
{
public:
    /** Shows each character as the given one, unless that is 0. */
    explicit pageEditor (juce::juce_wchar shownCharacter = 0);

private:
    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (pageEditor)
};
