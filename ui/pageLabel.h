#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

/** A text on a page: one that cannot be edited, centred vertically at the left of its bounds. */
class pageLabel : public juce::Label
{
public:
    /** The height of a page's plain text, in its units. */
    static constexpr float textHeight = 15.0f;

    explicit pageLabel (const juce::Font& fontToUse = juce::Font (textHeight));

private:
    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (pageLabel)
};
