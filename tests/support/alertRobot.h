#pragma once

#include <deque>
#include <functional>
#include <juce_gui_basics/juce_gui_basics.h>
#include <vector>

/** Plays the person in front of the message boxes: while it lives it reads each box that opens and presses one
    of its buttons, as a click would. A box blocks its caller in a nested message loop, so the answers are laid
    out before the box opens and what was shown is read afterwards. */
class alertRobot : private juce::Timer
{
public:
    alertRobot();
    ~alertRobot() override;

    /** A box that was shown. */
    struct box
    {
        juce::String title, text;
        juce::StringArray buttons;
    };

    /** Button to press in the next box that has no answer yet. Boxes without an answer get their only button;
        a box of several buttons without an answer fails the test. */
    alertRobot& answer (const juce::String& button);

    /** Called with each open box before it is answered. */
    std::function<void (juce::AlertWindow&)> whileOpen;

    /** The boxes so far, in the order in which they opened. */
    const std::vector<box>& seen() const { return boxes; }

    /** Their texts. */
    juce::StringArray texts() const;

    /** The message box that is open now and in front, or null. */
    static juce::AlertWindow* openBox();

private:
    void timerCallback() override;

    std::vector<box> boxes;
    std::deque<juce::String> answers;
    juce::Component::SafePointer<juce::AlertWindow> answered;
};
