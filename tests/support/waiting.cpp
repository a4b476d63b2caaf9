#include "tests/support/waiting.h"
#include <catch2/catch.hpp>
#include <juce_gui_basics/juce_gui_basics.h>

void waitFor (const char* what, const std::function<bool()>& condition, int deadlineMs)
{
    const auto deadline = juce::Time::getMillisecondCounter() + (juce::uint32) deadlineMs;

    while (! condition())
    {
        if (juce::Time::getMillisecondCounter() > deadline)
            FAIL ("waited " << deadlineMs << " ms in vain: " << what);

        juce::MessageManager::getInstance()->runDispatchLoopUntil (2);
    }
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
