// The downloads page at work, in a process of its own so that its memory can be told.
//
// Usage: downloadRun ORIGIN SIZE COUNT FOLDER
// Downloads COUNT items of SIZE bytes each and prints the seconds that took and the peak of resident memory in MiB.

#include "app/installationPaths.h"
#include "content/store_downloads.h"
#include "store/showAttention.h"
#include <cstdio>
#include <cstdlib>
#include <fstream>

static double secondsTaken = 0, start = 0;

static double seconds()
{
    return juce::Time::getMillisecondCounterHiRes() / 1000;
}

/** Stands in for the message box. A run without failures has one, at its end. */
void showAttention (const juce::String& message)
{
    secondsTaken = seconds() - start;

    if (! message.startsWith ("Successfully downloaded: "))
    {
        std::fprintf (stderr, "%s\n", message.toRawUTF8());
        std::exit (1);
    }

    juce::MessageManager::getInstance()->stopDispatchLoop();
}

static double peakMiB()
{
    std::ifstream status ("/proc/self/status");

    for (std::string line; std::getline (status, line);)
        if (line.rfind ("VmHWM:", 0) == 0)
            return std::atof (line.c_str() + 6) / 1024;

    return 0;
}

namespace
{
struct catalogue : genericlistener
{
    juce::String address;
    int count = 0;

    void handleMessage (const juce::String&, const juce::var&, const juce::var&, const juce::var&) override {}

    juce::var handleRequest (const juce::String& text, const juce::var& index, const juce::var&,
                             const juce::var&) override
    {
        if (text == "dl_total")
            return count;

        if (text == "dl_url")
            return (int) index < count ? address : juce::String();

        if (text == "dl_target")
            return installationFolder + "/item" + index.toString();

        if (text == "dl_buildnumber")
            return 1;

        return text == "dl_name" ? "Item" : "";
    }
};
}

int main (int argc, char* argv[])
{
    if (argc != 5)
        return 2;

    const juce::ScopedJuceInitialiser_GUI framework;
    catalogue items;
    items.address = juce::String (argv[1]) + "/" + juce::String (argv[2]);
    items.count = std::atoi (argv[3]);
    installationFolder = argv[4];

    store_downloads page (items, installationFolder);
    page.addToDesktop (0);
    page.setVisible (true);
    start = seconds();
    dynamic_cast<juce::Button&> (*page.getChildComponent (1)).triggerClick();
    juce::MessageManager::getInstance()->runDispatchLoop();

    std::printf ("%f %f\n", secondsTaken, peakMiB());
    return 0;
}
