#include "ui/pageContent.h"
#include <utility>

pageContent::child::child (juce::Label& label, const juce::String& text, juce::Rectangle<int> boundsInPage)
    : component (label),
      bounds (boundsInPage)
{
    label.setName ("new label");
    label.setText (text, juce::dontSendNotification);
}

pageContent::child::child (juce::GroupComponent& group, const juce::String& text,
                           juce::Rectangle<int> boundsInPage)
    : component (group),
      bounds (boundsInPage)
{
    group.setName ("new group");
    group.setText (text);
}

pageContent::child::child (juce::TextButton& button, const juce::String& text,
                           juce::Rectangle<int> boundsInPage)
    : component (button),
      bounds (boundsInPage)
{
    button.setName ("new button");
    button.setButtonText (text);
}

pageContent::child::child (juce::ToggleButton& button, const juce::String& text,
                           juce::Rectangle<int> boundsInPage)
    : component (button),
      bounds (boundsInPage)
{
    button.setName ("new toggle button");
    button.setButtonText (text);
}

pageContent::child::child (juce::TextEditor& editor, const juce::String& title,
                           juce::Rectangle<int> boundsInPage)
    : component (editor),
      bounds (boundsInPage)
{
    editor.setName ("new text editor");
    editor.setTitle (title);
}

pageContent::pageContent (juce::Component& page, std::vector<child> childrenOfPage)
    : children (std::move (childrenOfPage))
{
    for (auto& c : children)
        page.addAndMakeVisible (c.component);
}

void pageContent::layOut() const
{
    for (auto& c : children)
        c.component.setBounds (c.bounds);
}
