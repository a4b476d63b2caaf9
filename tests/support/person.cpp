#include "tests/support/person.h"
#include <catch2/catch.hpp>

juce::String textOf (const juce::Component& c)
{
    if (auto* label = dynamic_cast<const juce::Label*> (&c))
        return label->getText();

    if (auto* group = dynamic_cast<const juce::GroupComponent*> (&c))
        return group->getText();

    if (auto* button = dynamic_cast<const juce::Button*> (&c))
        return button->getButtonText();

    return c.getTitle();
}

void mouse (juce::Component& component, int x, int y, int buttons)
{
    auto& peer = *component.getPeer();
    auto& window = peer.getComponent();
    const auto scale = (float) peer.getBounds().getWidth() / (float) window.getWidth();
    const auto position = window.getLocalPoint (&component, juce::Point<int> (x, y)).toFloat() * scale;
    peer.handleMouseEvent (juce::MouseInputSource::InputSourceType::mouse, position, buttons, 0.0f, 0.0f,
                           juce::Time::currentTimeMillis());
}

void click (juce::Component& component, int x, int y)
{
    mouse (component, x, y);
    mouse (component, x, y, juce::ModifierKeys::leftButtonModifier);
}

void waitFor (const char* what, const std::function<bool()>& condition)
{
    const auto deadline = juce::Time::getMillisecondCounter() + 20000;

    while (! condition())
    {
        if (juce::Time::getMillisecondCounter() > deadline)
            FAIL ("waited 20 seconds in vain: " << what);

        juce::MessageManager::getInstance()->runDispatchLoopUntil (2);
    }
}

void focus (juce::Component& component)
{
    waitFor ("the keyboard focus", [&] {
        component.grabKeyboardFocus();
        return component.hasKeyboardFocus (true);
    });
}

juce::String focusedText()
{
    const auto* focused = juce::Component::getCurrentlyFocusedComponent();
    return focused != nullptr ? textOf (*focused) : juce::String();
}

void drainMessages()
{
    for (int round = 0; round < 3; ++round)
    {
        auto passed = std::make_shared<bool> (false);

        if (juce::MessageManager::callAsync ([passed] { *passed = true; }))
            waitFor ("queued messages", [passed] { return *passed; });
    }
}
