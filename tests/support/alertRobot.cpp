#include "tests/support/alertRobot.h"
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

void alertRobot::timerCallback()
{
    auto* open =
        dynamic_cast<juce::AlertWindow*> (juce::ModalComponentManager::getInstance()->getModalComponent (0));

    if (open == nullptr || open == answered)
        return;

    answered = open;
    juce::StringArray buttons;

    for (auto* child : open->getChildren())
        if (auto* button = dynamic_cast<juce::TextButton*> (child))
            buttons.add (button->getButtonText());

    const auto isQuestion = buttons != juce::StringArray ("Ok");
    const auto choice = isQuestion ? " [" + buttons.joinIntoString ("|") + "]" : juce::String();
    CHECK (open->getName() == "Klangora 4");
    shown.add (dynamic_cast<messageBox&> (*open).getText() + choice);
    juce::NullCheckedInvocation::invoke (whileOpen);

    if (answered == nullptr)
        return;

    const auto press = isQuestion ? answers[0] : buttons[0];
    answers.removeRange (0, isQuestion ? 1 : 0);

    if (! buttons.contains (press))
        FAIL_CHECK ("no answer to: " << shown[shown.size() - 1]);

    open->triggerButtonClick (buttons.contains (press) ? press : buttons[0]);
}
