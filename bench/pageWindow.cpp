// Usage: pageWindow none|welcome|account|downloads|PICTURE
// A bare framework window with that page in it, or that picture, or nothing, until it is ended.

#include "content/store_downloads.h"
#include "net/store_auth.h"
#include "store/store_intro.h"
#include "ui/lookAndFeelKlangora.h"

namespace
{
struct silence : genericlistener
{
    void handleMessage (const juce::String&, const juce::var&, const juce::var&, const juce::var&) override {}

    juce::var handleRequest (const juce::String&, const juce::var&, const juce::var&,
                             const juce::var&) override
    {
        return {};
    }
};

struct plainPicture : juce::Component
{
    explicit plainPicture (const juce::Image& toShow)
        : picture (toShow)
    {}

    void paint (juce::Graphics& g) override { g.drawImageAt (picture, 0, 0); }

    const juce::Image picture;
};
}

int main (int argc, char* argv[])
{
    const juce::ScopedJuceInitialiser_GUI framework;
    const juce::String page (argc > 1 ? argv[1] : "none");
    const auto showsPicture = juce::File::isAbsolutePath (page);
    silence dialog;

    // With the framework's title bar: the desktop's is on the screen before the program has painted anything.
    juce::DocumentWindow window ("pageWindow", juce::Colours::white, 0);

    if (page != "none" && ! showsPicture)
        lookAndFeelKlangora::install();

    if (showsPicture)
        window.setContentOwned (new plainPicture (juce::ImageFileFormat::loadFrom (juce::File (page))), true);
    else if (page == "welcome")
        window.setContentOwned (new store_intro (dialog), true);
    else if (page == "account")
        window.setContentOwned (new store_auth (dialog, {}), true);
    else if (page == "downloads")
        window.setContentOwned (new store_downloads (dialog, {}), true);
    window.centreWithSize (700, 500);
    window.setVisible (true);
    juce::MessageManager::getInstance()->runDispatchLoop();
    return 0;
}
