#pragma once

#include <juce_gui_basics/juce_gui_basics.h>
#include <vector>

/** The children of a page, from the lowest to the topmost: what each one says and where it stands. */
class pageContent
{
public:
    /** One child, which is given its text and the component name of its kind. The text of an editor is its title for
        screen readers. */
    struct child
    {
        child (juce::Label&, const juce::String& text, juce::Rectangle<int> boundsInPage);
        child (juce::GroupComponent&, const juce::String& text, juce::Rectangle<int> boundsInPage);
        child (juce::TextButton&, const juce::String& text, juce::Rectangle<int> boundsInPage);
        child (juce::ToggleButton&, const juce::String& text, juce::Rectangle<int> boundsInPage);
        child (juce::TextEditor&, const juce::String& title, juce::Rectangle<int> boundsInPage);

        juce::Component& component;
        const juce::Rectangle<int> bounds;
    };

    /** Adds the children to the page, visible. Does not own them. */
    pageContent (juce::Component& page, std::vector<child> childrenOfPage);

    /** Puts every child into its place; a page calls it when it is resized. */
    void layOut() const;

private:
    const std::vector<child> children;

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (pageContent)
};
