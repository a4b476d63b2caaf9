#define CATCH_CONFIG_MAIN
#include "tests/support/temporaryInstallation.h"
#include "ui/lookAndFeelKlangora.h"
#include <catch2/catch.hpp>
#include <iostream>

namespace
{
/** The framework only logs a failed assertion when no debugger is attached; a test must not pass over one. */
struct assertionLogger : juce::Logger
{
    void logMessage (const juce::String& message) override
    {
        std::cerr << message << std::endl;

        if (message.contains ("Assertion failure"))
            std::_Exit (EXIT_FAILURE);
    }
};

/** Every run through a test case gets the framework anew, one for each of its sections, with the program's look and feel,
    a settings folder of its own and the program-wide paths empty: a store dialog that was closed ends the message
    manager, and no test may see another's windows, timers or animations. */
struct frameworkPerRun : Catch::TestEventListenerBase
{
    using TestEventListenerBase::TestEventListenerBase;

    void sectionStarting (const Catch::SectionInfo&) override
    {
        if (depth++ == 0)
            start();
    }

    void sectionEnded (const Catch::SectionStats&) override
    {
        if (--depth == 0)
            end();
    }

    bool assertionEnded (const Catch::AssertionStats&) override { return false; }

    void start()
    {
        // Without an application to create, the framework installs no handler for X errors and the first one
        // ends the process.
        juce::JUCEApplicationBase::createInstance = []() -> juce::JUCEApplicationBase* { return nullptr; };
        juce::Logger::setCurrentLogger (&logger);
        settings = juce::File::createTempFile ("rigmart-settings");
        settings.createDirectory();
#if ! JUCE_WINDOWS
        setenv ("XDG_CONFIG_HOME", settings.getFullPathName().toRawUTF8(), 1);
#endif
        forgetInstallation();
        framework.emplace();
        lookAndFeelKlangora::install();
    }

    /** Lets go of every window: they are owned by the test, or by a dialog that ended with it. */
    void end()
    {
        auto& desktop = juce::Desktop::getInstance();
        desktop.getAnimator().cancelAllAnimations (false);

        while (desktop.getNumComponents() > 0)
            desktop.getComponent (0)->removeFromDesktop();

        framework.reset();
        juce::Logger::setCurrentLogger (nullptr);
        settings.deleteRecursively();
    }

    int depth = 0;
    assertionLogger logger;
    juce::File settings;
    std::optional<juce::ScopedJuceInitialiser_GUI> framework;
};
}

CATCH_REGISTER_LISTENER (frameworkPerRun)

/** The X libraries keep their locale tables for the life of the process. */
// NOLINTNEXTLINE(bugprone-reserved-identifier,readability-identifier-naming): the sanitizer asks for it
extern "C" const char* __lsan_default_suppressions()
{
    return "leak:libX11\n";
}

/** What no memory can be had for is null, as without the sanitizer. */
// NOLINTNEXTLINE(bugprone-reserved-identifier,readability-identifier-naming): the sanitizer asks for it
extern "C" const char* __asan_default_options()
{
    return "allocator_may_return_null=1";
}
