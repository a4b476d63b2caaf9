#pragma once

#include <functional>
#include <juce_gui_basics/juce_gui_basics.h>

/** Plays the person in front of the message boxes: while it lives it reads each box that opens and presses one
    of its buttons, as a click would. A box blocks its caller in a nested message loop, so the answers are laid
    out before the box opens and what was shown is read afterwards. Every box must have the product's title, and
    "Ok" or the buttons of a question. */
struct alertRobot : private juce::Timer
{
    alertRobot() { startTimer (5); }
    ~alertRobot() override;

    /** The buttons to press in the next questions. A question without an answer, and an answer that no question asked
        for, fail the test. */
    juce::StringArray answers;

    /** Called with each open box before it is answered. */
    std::function<void()> whileOpen = [] {};

    /** The texts of the boxes so far, in the order in which they opened; that of a question ends with its buttons,
        such as "Sure? [Yes|No]". */
    juce::StringArray texts;

private:
    void timerCallback() override;

    juce::Component::SafePointer<juce::Component> answered;
};
