#include "tests/support/alertRobot.h"
#include "app/productName.h"
#include "tests/support/componentText.h"
#include "ui/messageBox.h"
#include <catch2/catch.hpp>

alertRobot::alertRobot()
{
    startTimer (5);
}

alertRobot::~alertRobot()
{
    CHECK (answers == juce::StringArray());
}

alertRobot& alertRobot::answer (const juce::String& button)
{
    answers.add (button);
    return *this;
}

/** Without the program's look and feel a box is the framework's, which keeps the text in its description. */
static juce::String messageOf (const juce::AlertWindow& box)
{
    const auto* ours = dynamic_cast<const messageBox*> (&box);
    return ours != nullptr ? ours->getText()
                           : box.getDescription().fromFirstOccurrenceOf (". ", false, false);
}

void alertRobot::timerCallback()
{
    const auto& manager = *juce::ModalComponentManager::getInstance();
    auto* open = dynamic_cast<juce::AlertWindow*> (manager.getModalComponent (0));

    if (open == nullptr || open == answered)
        return;

    answered = open;
    juce::StringArray buttons;

    for (auto* button : findAll<juce::TextButton> (*open))
        buttons.add (textOf (*button));

    const auto isQuestion = buttons != juce::StringArray ("Ok");
    const auto choice = isQuestion ? " [" + buttons.joinIntoString ("|") + "]" : juce::String();
    CHECK (open->getName() == productName);
    shown.add (messageOf (*open) + choice);
    juce::NullCheckedInvocation::invoke (whileOpen);

    if (answered == nullptr)
        return;

    const auto press = isQuestion ? answers[0] : buttons[0];
    answers.removeRange (0, isQuestion ? 1 : 0);

    if (! buttons.contains (press))
        FAIL_CHECK ("no answer to: " << shown[shown.size() - 1]);

    open->triggerButtonClick (buttons.contains (press) ? press : buttons[0]);
}
