#include "app/theApp.h"
#include "app/installationPaths.h"
#include "app/programVersion.h"
#include "store/jStoreDialog.h"
#include "ui/lookAndFeelKlangora.h"

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

void theApp::initialise (const juce::String&)
{
    lookAndFeelKlangora::install();
    findInstallationPaths();

    new jStoreDialog (nullptr); // owns itself
}

void theApp::shutdown()
{}
