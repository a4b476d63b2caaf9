#pragma once

#include <juce_gui_basics/juce_gui_basics.h>
#include <stdexcept>

/** What a person would find in a component, in words: one line for each of its children, in the order in which they
    lie on each other and indented below their parent. A line has the kind, the bounds in the parent, the text and
    whatever makes the child look or behave as it does. Nothing in it depends on the fonts of the machine. */
juce::String componentText (const juce::Component&);

/** What a person knows a component by: the text of a button, a label or a group, and the title of any other. */
juce::String textOf (const juce::Component&);

/** The components of a kind below another one, in the order in which they lie on each other. */
template <typename Type>
std::vector<Type*> findAll (const juce::Component& parent)
{
    std::vector<Type*> found;

    for (auto* child : parent.getChildren())
    {
        if (auto* match = dynamic_cast<Type*> (child))
            found.push_back (match);

        for (auto* below : findAll<Type> (*child))
            found.push_back (below);
    }

    return found;
}

/** The component of a kind that a person knows by a text; with several of them, the one at a place among them.
    Without such a one the test fails. */
template <typename Type>
Type& find (const juce::Component& parent, const juce::String& text, int place = 0)
{
    for (auto* component : findAll<Type> (parent))
        if (textOf (*component) == text && place-- == 0)
            return *component;

    throw std::runtime_error (("there is nothing that says: " + text).toStdString());
}
