#include "tests/support/waiting.h"
#include <catch2/catch.hpp>
#include <juce_gui_basics/juce_gui_basics.h>

#if JUCE_LINUX
    #include <juce_events/native/juce_linux_EventLoopInternal.h>
#endif

void handleQueuedEvents()
{
#if JUCE_LINUX
    for (auto fd : juce::LinuxEventLoopInternal::getRegisteredFds())
        juce::LinuxEventLoopInternal::invokeEventLoopCallbackForFd (fd);
#endif
}

void waitFor (const char* what, const std::function<bool()>& condition, int deadlineMs)
{
    const auto deadline = juce::Time::getMillisecondCounter() + (juce::uint32) deadlineMs;

    while (! condition())
    {
        if (juce::Time::getMillisecondCounter() > deadline)
            FAIL ("waited " << deadlineMs << " ms in vain: " << what);

        handleQueuedEvents();
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
