#include "tests/support/downloadsRun.h"
#include "app/installationPaths.h"
#include "content/store_downloads.h"
#include "tests/support/alertRobot.h"
#include "tests/support/person.h"

void catalogueOwner::handleMessage (const juce::String&, const juce::var&, const juce::var&, const juce::var&)
{
    ++lists;
    whenCalled ("list");
}

juce::var catalogueOwner::handleRequest (const juce::String& text, const juce::var& index, const juce::var&,
                                         const juce::var&)
{
    whenCalled (text);
    const auto item = items[index];
    const juce::NamedValueSet answers{ { "dl_total", items.size() },
                                       { "dl_url", item.url },
                                       { "dl_target", installationFolder + "/" + item.target },
                                       { "dl_name", item.name },
                                       { "dl_buildnumber", item.buildnumber },
                                       { "dl_bdr", item.builddaterequirement },
                                       { "dl_auth", "the token" } };
    return answers[text];
}

juce::StringArray runDownloads (const juce::Array<DownloadItem>& catalogue)
{
    alertRobot robot;
    catalogueOwner owner;
    owner.items = catalogue;
    store_downloads page (owner, installationFolder);
    auto& button = find<juce::Button> (page, "Download!");
    button.triggerClick();
    waitFor ("the end of the run", [&] { return owner.lists == 1 && button.isEnabled(); });
    drainMessages();
    return robot.texts;
}
