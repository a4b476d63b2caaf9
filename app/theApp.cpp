#include "app/theApp.h"
#include "app/installationPaths.h"
#include "app/programVersion.h"
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

    struct emptyWindow : juce::DocumentWindow
    {
        emptyWindow()
            : DocumentWindow ("Dorvik Rigmart and Licenses", juce::Colours::black, allButtons)
        {
            centreWithSize (500, 500);
            setVisible (true);
        }

        void closeButtonPressed() override
        {
            delete this;
            quit();
        }
    };

    new emptyWindow();
}

void theApp::shutdown()
{}
