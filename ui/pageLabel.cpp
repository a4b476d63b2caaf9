#include "ui/pageLabel.h"

pageLabel::pageLabel (const juce::String& text, const juce::Font& fontToUse)
    : Label ("new label", text)
{
    setFont (fontToUse);
    setJustificationType (juce::Justification::centredLeft);
    setEditable (false, false, false);
    setColour (juce::TextEditor::textColourId, juce::Colours::black);
    setColour (juce::TextEditor::backgroundColourId, juce::Colours::transparentBlack);
}
