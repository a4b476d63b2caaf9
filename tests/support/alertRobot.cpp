#include "tests/support/alertRobot.h"
#include <catch2/catch.hpp>

alertRobot::alertRobot()
{
    startTimer (5);
}

alertRobot::~alertRobot()
{
    stopTimer();

    if (! answers.empty())
        FAIL_CHECK ("no box asked for the last " << answers.size() << " answers");
}

alertRobot& alertRobot::answer (const juce::String& button)
{
    answers.push_back (button);
    return *this;
}

juce::StringArray alertRobot::texts() const
{
    juce::StringArray result;

    for (auto& shown : boxes)
        result.add (shown.text);

    return result;
}

juce::AlertWindow* alertRobot::openBox()
{
    return dynamic_cast<juce::AlertWindow*> (
        juce::ModalComponentManager::getInstance()->getModalComponent (0));
}

void alertRobot::timerCallback()
{
    auto* open = openBox();

    if (open == nullptr || open == answered.getComponent())
        return;

    answered = open;

    box shown;
    shown.title = open->getName();
    shown.text = open->getDescription().fromFirstOccurrenceOf (shown.title + ". ", false, false);

    for (auto* child : open->getChildren())
        if (auto* button = dynamic_cast<juce::TextButton*> (child))
            shown.buttons.add (button->getButtonText());

    boxes.push_back (shown);
    juce::Component::SafePointer<juce::AlertWindow> stillOpen (open);

    if (whileOpen != nullptr)
        whileOpen (*open);

    if (stillOpen == nullptr)
        return;

    auto press = shown.buttons[0];

    if (! answers.empty())
    {
        press = answers.front();
        answers.pop_front();
    }
    else if (shown.buttons.size() > 1)
    {
        FAIL_CHECK ("unexpected question: " << shown.text);
    }

    if (! shown.buttons.contains (press))
    {
        FAIL_CHECK ("the box \"" << shown.text << "\" has no button " << press);
        press = shown.buttons[0];
    }

    open->triggerButtonClick (press);
}
