#include "sandbox/plainLetters.h"

// In units of the font's height.
static constexpr float ascent = 0.8f, gap = 0.05f, narrowest = 0.35f, lowest = 0.3f;
static constexpr juce::juce_wchar firstLetter = 0x21, lastLetter = 0x7e, ellipsis = 0x2026;

plainLetters::plainLetters()
{
    setCharacteristics ("Plain letters", ascent, false, false, ' ');
    addGlyph (' ', {}, narrowest);

    const auto addBar = [this] (juce::juce_wchar letter) {
        const auto width = narrowest + 0.01f * (float) (letter % 32),
                   height = lowest + 0.04f * (float) (letter % 11);
        juce::Path bar;
        bar.addRectangle (gap, -height, width - 2 * gap, height);
        addGlyph (letter, bar, width);
    };

    for (auto letter = firstLetter; letter <= lastLetter; ++letter)
        addBar (letter);

    addBar (ellipsis);
}
