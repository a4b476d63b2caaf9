#include "tests/support/alertRobot.h"
#include "app/productName.h"
#include "tests/support/person.h"
#include "ui/messageBox.h"
#include <catch2/catch.hpp>

alertRobot::~alertRobot()
{
    CHECK (answers == juce::StringArray());
}

void alertRobot::timerCallback()
{
    const auto& manager = *juce::ModalComponentManager::getInstance();
    auto* open = dynamic_cast<messageBox*> (manager.getModalComponent (0));

    if (open == nullptr || open == answered)
        return;

    answered = open;
    juce::StringArray buttons;

    for (auto* button : findAll<juce::TextButton> (*open))
        buttons.add (textOf (*button));

    const auto isQuestion = buttons != juce::StringArray ("Ok");
    const auto text = open->getText() + (isQuestion ? " [" + buttons.joinIntoString ("|") + "]" : "");
    CHECK (open->getName() == productName);
    texts.add (text);
    whileOpen();

    if (answered == nullptr)
        return;

    const auto press = isQuestion ? answers[0] : buttons[0];
    answers.removeRange (0, isQuestion ? 1 : 0);

    if (! buttons.contains (press))
        FAIL_CHECK ("no answer to: " << text);

    open->triggerButtonClick (buttons.contains (press) ? press : buttons[0]);
}
