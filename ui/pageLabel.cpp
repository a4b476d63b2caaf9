#include "ui/pageLabel.h"

pageLabel::pageLabel (const juce::Font& fontToUse)
{
    setFont (fontToUse);
    setJustificationType (juce::Justification::centredLeft);
    setColour (juce::TextEditor::textColourId, juce::Colours::black);
    setColour (juce::TextEditor::backgroundColourId, juce::Colours::transparentBlack);
}
