#include "content/catalogue.h"
#include "tests/support/alertRobot.h"
#include "tests/support/dataTable.h"
#include "tests/support/downloadsRun.h"
#include "tests/support/loggedOnService.h"
#include "tests/support/temporaryInstallation.h"
#include <catch2/catch.hpp>
#include <regex>

/** What a file says that the user sees, by request; "" for a request that it is not played to. */
static juce::String outcomeIn (const juce::StringArray& lines, const juce::String& request)
{
    juce::String outcome;

    for (int i = 0; i < lines.indexOf ("---"); ++i)
    {
#if JUCE_WINDOWS
        const auto line = lines[i].replace ("Windows ", {});
#else
        const auto& line = lines[i];
#endif
        if (line.startsWith (request + ": "))
            outcome = line.fromFirstOccurrenceOf (": ", false, false);
    }

    return outcome;
}

/** Lays out the replies of a file, and those of the stranger to whom its redirects lead. */
static void layOut (const juce::StringArray& lines, scriptedServer& server, scriptedServer& stranger)
{
    auto* player = &server;
    juce::String reply;

    for (int i = lines.indexOf ("---") + 1; i <= lines.size(); ++i)
    {
        if (i < lines.size() && ! lines[i].startsWith ("---"))
        {
            reply += lines[i];
            continue;
        }

        const auto addressed =
            reply.replace ("@{here}", server.origin()).replace ("@{other}", stranger.origin());
        player->reply (expanded (addressed.replace ("@{reset}", {}).toStdString()));

        if (addressed.endsWith ("@{reset}"))
            player->reset();

        player = lines[i] == "--- other" ? &stranger : &server;
        reply.clear();
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
    const auto login = loggedOnService (server).requestLogin ("a@x.org", "secret");

    if (! login.has_value())
        return inShort (robot.texts());

    return login->token.isNotEmpty() ? juce::String ("logged on") : inShort ({ login->message });
}

static juce::String catalogue (const scriptedServer& server)
{
    alertRobot robot;
    juce::String error;
    const auto reply = loggedOnService (server).requestBin (error, "list", "mediareview");

    if (reply == nullptr || error.isNotEmpty())
        return inShort (reply == nullptr ? robot.texts() : juce::StringArray (error));

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
        for (auto& [name, play] : requests)
        {
            INFO (file.getFileName() << ", " << name);
            const auto lines = juce::StringArray::fromLines (file.loadFileAsString());
            const auto wanted = outcomeIn (lines, name);

            if (wanted.isEmpty())
                continue;

            const temporaryInstallation installation;
            scriptedServer server, stranger;
            layOut (lines, server, stranger);
            CHECK (play (server) == wanted);
            CHECK (installation.files().size() == (wanted.startsWith ("malformed") ? 1 : 0));

            for (auto& request : stranger.requests())
                CHECK (request.header ("Authorization") + request.body() == "");
        }
}
