#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

/** The application object, made by the framework. It only starts the program: the store dialog that it opens
    owns itself, and closing that dialog asks the application to quit. */
class theApp : public juce::JUCEApplication
{
public:
    const juce::String getApplicationName() override;
    const juce::String getApplicationVersion() override;
    bool moreThanOneInstanceAllowed() override;
    void initialise (const juce::String& commandLine) override;
    void shutdown() override;

private:
    /** Without a display there is no program: a sentence on standard error, and exit code 1. */
    bool initialiseApp() override;
};
