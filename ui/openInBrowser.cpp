#include "ui/openInBrowser.h"

void openInBrowser (const juce::String& address)
{
    juce::URL (address).launchInDefaultBrowser();
}
