#include "app/theApp.h"
#include "app/installationPaths.h"
#include "app/productName.h"
#include "app/programVersion.h"
#include "ui/jpseudomodaldialog.h"
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

    struct emptyDialog : jpseudomodaldialog
    {
        emptyDialog()
            : jpseudomodaldialog (nullptr, nullptr, "Dorvik Rigmart and Licenses", "QUIT", {}, {}, {}, {}, {},
                                  true)
        {
            setDialogSize (700, 500);
        }

        ~emptyDialog() override { quit(); }

        void done() override
        {
            if (juce::AlertWindow::showOkCancelBox (
                    juce::MessageBoxIconType::QuestionIcon, productName,
                    "This will close your connections with the Dorvik Rigmart store. Do you want to quit?",
                    "Quit", "Go back", nullptr, nullptr))
                finishDialog ("Done", {}, {}, {});
        }
    };

    new emptyDialog();
}

void theApp::shutdown()
{}
