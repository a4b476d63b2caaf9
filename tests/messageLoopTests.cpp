#include "tests/support/downloadsRun.h"
#include "tests/support/person.h"
#include "tests/support/scriptedServer.h"
#include "tests/support/temporaryInstallation.h"
#include "ui/busyCursor.h"
#include <catch2/catch.hpp>
#include <future>

/** Counts what reaches it of keyboard and mouse, in a window of its own. */
struct inputCounter : juce::Component
{
    inputCounter()
    {
        setWantsKeyboardFocus (true);
        setBounds (50, 50, 100, 100);
        addToDesktop (juce::ComponentPeer::windowIsTemporary); // a window manager would pass clicks on later
        setVisible (true);
        focus (*this);
    }

    bool keyPressed (const juce::KeyPress&) override { return ++keys > 0; }
    void mouseMove (const juce::MouseEvent&) override { ++moves; }

    void mouseDown (const juce::MouseEvent&) override
    {
        ++clicks;
        clicked.signal();
    }

    int keys = 0, clicks = 0, moves = 0;
    juce::WaitableEvent clicked;
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

#if JUCE_LINUX // where a test can press keys as the hardware does
static void pressReturnAndClick()
{
    REQUIRE (std::system ("xdotool key Return click 1") == 0);
}

TEST_CASE ("keys and clicks of the time in which the program is busy are dropped, later ones are not")
{
    inputCounter window;
    juce::Desktop::setMousePosition (window.getScreenBounds().getCentre());
    drainMessages();

    for (int round = 1; round <= 3; ++round)
    {
        {
            const busyCursor busy;
            pressReturnAndClick();
            pressReturnAndClick();
        }

        pressReturnAndClick();
        waitFor ("the last key and click", [&] { return window.keys >= round && window.clicks >= round; });
        CHECK (window.keys == round);
        CHECK (window.clicks == round);
    }

    CHECK_FALSE (juce::KeyPress::isKeyCurrentlyDown (juce::KeyPress::returnKey));
    CHECK_FALSE (juce::ModifierKeys::currentModifiers.isAnyMouseButtonDown());
}

TEST_CASE ("events that arrived with the answer to a question are handled without waiting for another")
{
    inputCounter window;
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

TEST_CASE_METHOD (temporaryInstallation, "a click is answered within a second while an item comes slowly")
{
    inputCounter window;
    juce::Desktop::setMousePosition (window.getScreenBounds().getCentre());

    std::vector<std::future<bool>> answers;
    const auto click = [&] {
        answers.push_back (std::async (std::launch::async, [&] {
            return std::system ("xdotool click 1") == 0 && window.clicked.wait (1000);
        }));
        return true;
    };

    scriptedServer server;
    server.reply ("HTTP/1.1 200 OK\r\nContent-Type: a/b\r\nContent-Length: 16665\r\n\r\n");
    server.waitUntil (click).pause (1500);

    for (const auto bytesPerSecond : { 110, 1000, 10000 })
    {
        server.waitUntil (click);

        for (int tenth = 0; tenth < 15; ++tenth)
            server.send (std::string (size_t (bytesPerSecond / 10), 'x')).pause (100);
    }

    CHECK (runDownloads ({ { server.origin(), "amp", "Amp" } })
           == juce::StringArray{ "Successfully downloaded: Amp" });
    REQUIRE (answers.size() == 4);

    for (auto& answer : answers)
        CHECK (answer.get());
}
#endif
