#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

/** A text on a page: one that cannot be edited, centred vertically at the left of its bounds. */
class pageLabel : public juce::Label
{
public:
    pageLabel (const juce::String& text, const juce::Font& fontToUse);

private:
    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (pageLabel)
};
