#include "app/installationPaths.h"
#include "content/catalogue.h"
#include "net/storeService.h"
#include "tests/support/alertRobot.h"
#include "tests/support/dataTable.h"
#include "tests/support/downloadsRun.h"
#include "tests/support/scriptedServer.h"
#include "tests/support/temporaryInstallation.h"
#include <catch2/catch.hpp>
#include <regex>

static const juce::String token ("to ken"), enduser ("a+b@x.org");

/** The service that a server is, for an account that is logged on. */
static storeService serviceOf (const scriptedServer& server)
{
    return { server.origin(), installationFolder, token, enduser,
             [] (auto& blockingCall) { blockingCall(); } };
}

/** What the first lines of a file say that the user sees, by request. */
static juce::StringPairArray outcomesIn (const juce::String& head)
{
    juce::StringPairArray outcomes;

    for (auto& line : juce::StringArray::fromLines (head))
    {
        auto request = line.upToFirstOccurrenceOf (": ", false, false);
#if JUCE_WINDOWS
        request = request.replace ("Windows ", {});
#endif
        outcomes.set (request, line.fromFirstOccurrenceOf (": ", false, false));
    }

    return outcomes;
}

static const juce::String separator ("\n---");

/** Lays out the replies of a file, and those of the stranger to whom its redirects lead. */
static void layOut (juce::String replies, scriptedServer& server, scriptedServer& stranger)
{
    while (replies.isNotEmpty())
    {
        const auto reply = replies.upToFirstOccurrenceOf (separator, false, false);
        const auto bytes = reply.fromFirstOccurrenceOf ("\n", false, false)
                               .removeCharacters ("\n")
                               .replace ("@{here}", server.origin())
                               .replace ("@{other}", stranger.origin());
        auto& player = reply.startsWith (" other") ? stranger : server;
        player.reply (expanded (bytes.replace ("@{reset}", {}).toStdString()));

        if (bytes.endsWith ("@{reset}"))
            player.reset();

        replies = replies.fromFirstOccurrenceOf (separator, false, false);
    }
}

/** Boxes as the files name them: the frequent ones in short, the start of any other. */
static juce::String inShort (const juce::StringArray& boxes)
{
    static const std::pair<std::regex, const char*> rules[] = {
        { std::regex ("No data returned from web server[^]*"), "no data" },
        { std::regex ("Malformed data[^]*but was (\\d+) bytes[^]*"), "malformed: $1" },
        { std::regex ("License server reports zero size[^]*"), "zero size" },
        { std::regex ("Error downloading[^]*\n(.*) bytes\\.[^]*"), "$1" },
        { std::regex ("Successfully downloaded: Amp"), "stored" },
        { std::regex ("Failed to save file[^]*"), "" },
    };
    juce::StringArray names;

    for (auto& box : boxes)
    {
        auto name = box.substring (0, 500).toStdString();

        for (auto& [text, shortForm] : rules)
            name = std::regex_replace (name, text, shortForm);

        names.add (juce::String (name).substring (0, 80).replaceCharacters ("\r\n", "||"));
    }

    names.removeEmptyStrings();
    return names.joinIntoString (", ");
}

static juce::String logOn (const scriptedServer& server)
{
    alertRobot robot;
    const auto login = serviceOf (server).requestLogin ("a@x.org", "secret");

    if (! login.has_value())
        return inShort (robot.texts);

    return login->token.isNotEmpty() ? juce::String ("logged on") : inShort ({ login->message });
}

static juce::String catalogue (const scriptedServer& server)
{
    alertRobot robot;
    juce::String error;
    const auto reply = serviceOf (server).requestBin (error, "list", "mediareview");

    if (reply == nullptr || error.isNotEmpty())
        return inShort (reply == nullptr ? robot.texts : juce::StringArray (error));

    juce::Array<DownloadItem> items;
    readCatalogue (*reply, installationFolder, items);
    return juce::String (items.size()) + " items";
}

static juce::String item (const scriptedServer& server)
{
    const juce::File file (installationFolder + "/amp");
    REQUIRE (file.replaceWithText ("old"));
    auto outcome = inShort (runDownloads ({ { server.origin() + "/amp", "amp", "Amp" } }));
    CHECK (file.loadFileAsString().startsWith ("old") == (outcome != "stored"));
    REQUIRE (file.deleteFile());
    return outcome;
}

TEST_CASE ("each reply of tests/replies has the outcome that stands beside it")
{
    const std::pair<const char*, juce::String (*) (const scriptedServer&)> requests[] = {
        { "log-on", logOn }, { "catalogue", catalogue }, { "item", item }
    };
    auto files = testFile ("replies").findChildFiles (juce::File::findFiles, false, "*.txt");
    files.sort();
    REQUIRE (files.size() >= 250);

    for (auto& file : files)
    {
        const auto text = file.loadFileAsString();
        const auto outcomes = outcomesIn (text.upToFirstOccurrenceOf (separator, false, false));

        for (auto& [request, play] : requests)
        {
            if (! outcomes.containsKey (request))
                continue;

            INFO (file.getFileName() << ", " << request);
            const auto& wanted = outcomes[request];
            const temporaryInstallation installation;
            scriptedServer server, stranger;
            layOut (text.fromFirstOccurrenceOf (separator, false, false), server, stranger);
            CHECK (play (server) == wanted);
            CHECK (installation.files().size() == (wanted.startsWith ("malformed") ? 1 : 0));

            for (auto& seen : stranger.requests())
                CHECK (seen.header ("Authorization") + seen.body() == "");
        }
    }
}
