#include "tests/support/waiting.h"
#include <catch2/catch.hpp>
#include <juce_gui_basics/juce_gui_basics.h>

/** Counts the keys that reach it, in a window of its own. */
struct keyCounter : juce::Component
{
    keyCounter()
    {
        setWantsKeyboardFocus (true);
        setBounds (50, 50, 100, 100);
        addToDesktop (0);
        setVisible (true);
        waitFor ("the keyboard focus", [this] {
            grabKeyboardFocus();
            return hasKeyboardFocus (false);
        });
    }

    bool keyPressed (const juce::KeyPress&) override { return ++keys > 0; }
    void mouseMove (const juce::MouseEvent&) override { ++moves; }

    int keys = 0, moves = 0;
};

TEST_CASE ("a message loop that ran inside a callback does not put the outer one to sleep")
{
    // The framework's own sleep lasts 2000 ms, unless an event comes in.
    auto& messages = *juce::MessageManager::getInstance();
    juce::uint32 start = 0;

    juce::MessageManager::callAsync ([&] {
        messages.runDispatchLoopUntil (20);
        messages.stopDispatchLoop();
        messages.runDispatchLoopUntil (20); // handles that message
        start = juce::Time::getMillisecondCounter();
    });
    messages.runDispatchLoop();
    CHECK (juce::Time::getMillisecondCounter() - start < 1500);
}

#if JUCE_LINUX
TEST_CASE ("events that arrived with the answer to a question are handled without waiting for another")
{
    keyCounter window;
    drainMessages();

    for (int round = 1; round <= 5; ++round)
    {
        const auto before = window.moves;
        juce::Desktop::setMousePosition ({ 60 + round, 70 });
        juce::Desktop::getMousePosition(); // its answer comes after the event
        juce::MessageManager::getInstance()->runDispatchLoopUntil (100);
        CHECK (window.moves > before);
    }
}
#endif
