#include "app/installationPaths.h"
#include "content/catalogue.h"
#include "content/store_downloads.h"
#include "net/storeService.h"
#include "tests/support/alertRobot.h"
#include "tests/support/scriptedServer.h"
#include "tests/support/temporaryInstallation.h"
#include "tests/support/waiting.h"
#include <catch2/catch.hpp>
#include <map>

#if JUCE_WINDOWS
static constexpr bool isWindows = true;
#else
static constexpr bool isWindows = false;
#endif

/** The bytes that a line of a file stands for (see tests/replies/README.md). */
static std::string expanded (const std::string& line)
{
    std::string bytes;

    for (size_t i = 0; i < line.size(); ++i)
    {
        if (line[i] == '\\')
        {
            const auto code = line[++i];
            bytes += code == 'r'    ? '\r'
                     : code == 'n'  ? '\n'
                     : code == '\\' ? '\\'
                                    : (char) std::stoi (line.substr (i + 1, 2), nullptr, 16);
            i += code == 'x' ? 2 : 0;
        }
        else if (line.compare (i, 2, "@{") == 0)
        {
            const auto star = line.find ('*', i), end = line.find ('}', i);
            REQUIRE ((star != std::string::npos && end != std::string::npos));
            const auto unit = expanded (line.substr (star + 1, end - star - 1));

            for (auto left = std::stoi (line.substr (i + 2)); left > 0; --left)
                bytes += unit;

            i = end;
        }
        else
        {
            bytes += line[i];
        }
    }

    return bytes;
}

/** What a file says that the user sees, by request; "" for a request that it is not played to. */
static juce::String outcomeIn (const juce::File& file, const juce::String& request)
{
    juce::String outcome;

    for (auto& line : juce::StringArray::fromLines (file.loadFileAsString()))
    {
        if (line == "---")
            break;

        if (line.startsWith (request + ": ") || (isWindows && line.startsWith ("Windows " + request + ": ")))
            outcome = line.fromFirstOccurrenceOf (": ", false, false);
    }

    return outcome;
}

/** A server that plays what a file says, and the stranger to whom its redirects lead. */
struct playedReply
{
    explicit playedReply (const juce::File& file)
    {
        auto* player = &server;
        juce::String bytes;
        const auto play = [&] {
            player->reply (expanded (bytes.replace ("@{here}", server.origin())
                                         .replace ("@{other}", stranger.origin())
                                         .toStdString()));
        };
        const auto lines = juce::StringArray::fromLines (file.loadFileAsString());
        const auto first = lines.indexOf ("---");

        for (int i = first + 1; i < lines.size(); ++i)
        {
            if (! lines[i].startsWith ("---"))
            {
                bytes += lines[i];
                continue;
            }

            play();
            player = lines[i] == "---" ? &server : &stranger;
            bytes.clear();
        }

        play();
    }

    ~playedReply()
    {
        for (auto& request : stranger.requests())
            CHECK ((request.body().empty() && request.header ("Authorization").empty()));
    }

    scriptedServer server, stranger;
};

/** Boxes as the files name them: the frequent ones in short. */
static juce::String inShort (const juce::StringArray& boxes)
{
    juce::StringArray names;

    for (auto& box : boxes)
    {
        if (box.startsWith ("No data returned from web server."))
            names.add ("no data");
        else if (box.startsWith ("Malformed data returned"))
            names.add ("malformed: "
                       + box.fromFirstOccurrenceOf ("but was ", false, false)
                             .upToFirstOccurrenceOf (" bytes", false, false));
        else if (box.startsWith ("License server reports zero size"))
            names.add ("zero size");
        else if (box.startsWith ("Error downloading"))
            names.add (box.fromFirstOccurrenceOf ("\n", false, false)
                           .upToFirstOccurrenceOf (" bytes.", false, false));
        else if (box == "Successfully downloaded: Amp")
            names.add ("stored");
        else if (! box.startsWith ("Failed to save file(s)"))
            names.add (box.substring (0, 80).replaceCharacters ("\r\n", "||"));
    }

    return names.joinIntoString (", ");
}

/** The service at a server, for an account that is logged on. */
struct serviceAt : storeService
{
    explicit serviceAt (const scriptedServer& server)
        : storeService (server.origin(), ::installationFolder, token, enduser,
                        [] (const std::function<void()>& blockingCall) { blockingCall(); })
    {}

    const juce::String token{ "token" }, enduser{ "a@x.org" };
};

static juce::String logOn (const scriptedServer& server)
{
    alertRobot robot;
    const auto login = serviceAt (server).requestLogin ("a@x.org", "secret");

    if (! login.has_value())
        return inShort (robot.texts());

    return login->token.isNotEmpty() ? juce::String ("logged on") : inShort ({ login->message });
}

static juce::String catalogue (const scriptedServer& server)
{
    alertRobot robot;
    juce::String error;
    const auto reply = serviceAt (server).requestBin (error, "list", "mediareview");

    if (reply == nullptr || error.isNotEmpty())
        return inShort (reply == nullptr ? robot.texts() : juce::StringArray (error));

    juce::Array<DownloadItem> items;
    readCatalogue (*reply, "/klangora", items);
    return juce::String (items.size()) + " items";
}

/** A page whose catalogue has one item. */
struct pageWithItem : genericlistener
{
    explicit pageWithItem (const scriptedServer& server)
        : address (server.origin() + "/amp")
    {}

    void handleMessage (const juce::String&, const juce::var&, const juce::var&, const juce::var&) override
    {
        isListed = true;
    }

    juce::var handleRequest (const juce::String& text, const juce::var& index, const juce::var&,
                             const juce::var&) override
    {
        const std::map<juce::String, juce::var> answers{
            { "dl_total", 1 },       { "dl_url", (int) index == 0 ? address : juce::String() },
            { "dl_name", "Amp" },    { "dl_target", installationFolder + "/amp" },
            { "dl_bdr", "000000" },  { "dl_auth", "token" },
            { "dl_buildnumber", 1 },
        };
        return answers.at (text);
    }

    const juce::String address;
    bool isListed = false;
};

static juce::String item (const scriptedServer& server)
{
    const temporaryInstallation installation;
    const auto file = installation.write ("amp", juce::String ("old"));
    alertRobot robot;
    pageWithItem listener (server);
    store_downloads page (listener, installationFolder);
    auto& button = dynamic_cast<juce::Button&> (*page.getChildComponent (1));
    button.triggerClick();
    waitFor ("the end of the run", [&] { return listener.isListed && button.isEnabled(); });
    drainMessages();
    const auto outcome = inShort (robot.texts());
    CHECK (file.loadFileAsString().startsWith ("old") == (outcome != "stored"));
    return outcome;
}

TEST_CASE ("each reply of tests/replies has the outcome that stands beside it")
{
    const std::pair<const char*, juce::String (*) (const scriptedServer&)> requests[] = {
        { "log-on", logOn }, { "catalogue", catalogue }, { "item", item }
    };
    auto files = juce::File (REPLIES_FOLDER).findChildFiles (juce::File::findFiles, false, "*.txt");
    files.sort();
    REQUIRE (files.size() >= 150);

    for (auto& file : files)
        for (auto& [name, play] : requests)
        {
            const temporaryInstallation installation; // for what is not XML
            INFO (file.getFileName() << ", " << name);
            const auto wanted = outcomeIn (file, name);

            if (wanted.isEmpty())
                continue;

            const playedReply reply (file);
            CHECK (play (reply.server) == wanted);
        }
}
