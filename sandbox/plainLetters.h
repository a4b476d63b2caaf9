#pragma once

#include <juce_graphics/juce_graphics.h>

/** A typeface of bars, a different one for each character, so that pictures with text are the same wherever they are
    painted, whatever fonts are there. Bold and italic look alike. */
class plainLetters : public juce::CustomTypeface
{
public:
    plainLetters();
};
