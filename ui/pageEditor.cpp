#include "ui/pageEditor.h"
#include "ui/pageLabel.h"

pageEditor::pageEditor (juce::juce_wchar shownCharacter)
    : TextEditor ({}, shownCharacter)
{
    setFont (juce::Font (pageLabel::textHeight));
    setIndents (4, 0);
    setJustification (juce::Justification::centredLeft);
    setSelectAllWhenFocused (true);
    setEscapeAndReturnKeysConsumed (false);
}
