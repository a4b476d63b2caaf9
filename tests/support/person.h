#pragma once

#include <functional>
#include <juce_gui_basics/juce_gui_basics.h>

// What a person does at the screen: finds controls by what they say, uses the mouse, and waits.

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

/** The mouse moves to a point of a component that is on the screen, and there its buttons are up, unless told. */
void mouse (juce::Component&, int x, int y, int buttons = 0);

/** A press of the left button. It stays down, for what acts on that; the next move lets it go. */
void click (juce::Component&, int x, int y);

/** Lets the message loop run until a condition holds. Fails the test, naming what it waited for, when the
    deadline passes first: 20 seconds, which no healthy run comes near. */
void waitFor (const char* what, const std::function<bool()>& condition);

/** Gives a component the keyboard, and waits until it has it. */
void focus (juce::Component&);

/** What a person knows the component by that has the keyboard; "" without one. */
juce::String focusedText();

/** Lets every message that is already queued, and those that these queue, be handled. */
void drainMessages();
