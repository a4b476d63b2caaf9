#include "app/theApp.h"
#include "app/installationPaths.h"
#include "app/programVersion.h"
#include "store/jStoreDialog.h"
#include "ui/lookAndFeelKlangora.h"
#include <iostream>

const juce::String theApp::getApplicationName()
{
    return PROGRAM_NAME;
}

const juce::String theApp::getApplicationVersion()
{
    return PROGRAM_VERSION;
}

bool theApp::moreThanOneInstanceAllowed()
{
    return false;
}

bool theApp::initialiseApp()
{
#if JUCE_LINUX
    // The framework would take somebody's display for one that is not named.
    const auto isNamed = juce::SystemStats::getEnvironmentVariable ("DISPLAY", {}).isNotEmpty();
#else
    const auto isNamed = true;
#endif

    if (isNamed && juce::Desktop::getInstance().getDisplays().getPrimaryDisplay() != nullptr)
        return JUCEApplicationBase::initialiseApp(); // NOLINT(bugprone-parent-virtual-call): private there

    std::cerr << PROGRAM_NAME << ": there is no display, or it cannot be reached." << std::endl;
    setApplicationReturnValue (1);
    return false;
}

void theApp::initialise (const juce::String&)
{
    lookAndFeelKlangora::install();
    findInstallationPaths();

    new jStoreDialog (nullptr); // owns itself
}

void theApp::shutdown()
{}
