#include "tests/support/downloadsRun.h"
#include "app/installationPaths.h"
#include "content/store_downloads.h"
#include "tests/support/alertRobot.h"
#include "tests/support/waiting.h"
#include <catch2/catch.hpp>

namespace
{
/** The dialog that owns the page. */
struct catalogueOwner : genericlistener
{
    juce::Array<DownloadItem> catalogue;
    bool isListed = false;

    void handleMessage (const juce::String&, const juce::var&, const juce::var&, const juce::var&) override
    {
        isListed = true;
    }

    juce::var handleRequest (const juce::String& text, const juce::var& index, const juce::var&,
                             const juce::var&) override
    {
        const auto item = catalogue[index];
        const juce::NamedValueSet answers{ { "dl_total", catalogue.size() },
                                           { "dl_url", item.url },
                                           { "dl_target", installationFolder + "/" + item.target },
                                           { "dl_name", item.name },
                                           { "dl_buildnumber", item.buildnumber },
                                           { "dl_bdr", item.builddaterequirement },
                                           { "dl_auth", "token" } };
        return answers[text];
    }
};
}

static juce::Button& buttonOf (const juce::Component& page)
{
    for (auto* child : page.getChildren())
        if (auto* button = dynamic_cast<juce::Button*> (child))
            return *button;

    throw std::logic_error ("a page without a button");
}

juce::StringArray runDownloads (const juce::Array<DownloadItem>& catalogue)
{
    alertRobot robot;
    catalogueOwner owner;
    owner.catalogue = catalogue;
    store_downloads page (owner, installationFolder);
    auto& button = buttonOf (page);
    button.triggerClick();
    waitFor ("the end of the run", [&] { return owner.isListed && button.isEnabled(); });
    drainMessages();
    return robot.texts();
}
