#include "tests/support/freshFramework.h"
#include "app/installationPaths.h"
#include <cstdlib>
#include <iostream>
#include <juce_gui_basics/juce_gui_basics.h>
#include <new>

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

assertionLogger logger;
std::unique_ptr<juce::ScopedJuceInitialiser_GUI> framework;
juce::File settingsFolder;
}

void forgetInstallation()
{
    installationFolder.clear();
    registryKeyPath.clear();
    guiDataSource = nullptr;

    // A reader is opened once in its life, and these live as long as the process.
    std::destroy_at (&guiFolderSource);
    std::destroy_at (&guiArchiveSource);
    new (&guiFolderSource) jSimpleArchiveDirectory();
    new (&guiArchiveSource) jSimpleArchive();
}

void startFramework()
{
    // Without an application to create, the framework installs no handler for X errors and the first one
    // ends the process.
    juce::JUCEApplicationBase::createInstance = []() -> juce::JUCEApplicationBase* { return nullptr; };
    juce::Logger::setCurrentLogger (&logger);

    settingsFolder = juce::File::createTempFile ("rigmart-settings");
    settingsFolder.createDirectory();
#if ! JUCE_WINDOWS
    setenv ("XDG_CONFIG_HOME", settingsFolder.getFullPathName().toRawUTF8(), 1);
#endif

    forgetInstallation();
    framework = std::make_unique<juce::ScopedJuceInitialiser_GUI>();
}

void stopFramework()
{
    auto& desktop = juce::Desktop::getInstance();
    desktop.getAnimator().cancelAllAnimations (false);

    // The windows are owned by the test, or by a dialog that ended with it.
    while (desktop.getNumComponents() > 0)
        desktop.getComponent (0)->removeFromDesktop();

    framework.reset();
    juce::Logger::setCurrentLogger (nullptr);
    settingsFolder.deleteRecursively();
}

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
