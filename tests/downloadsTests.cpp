#include "app/installationPaths.h"
#include "base/safeFileWriter.h"
#include "content/receiveBuffer.h"
#include "content/store_downloads.h"
#include "sandbox/archiveWriter.h"
#include "store/showAttention.h"
#include "tests/support/alertRobot.h"
#include "tests/support/mouse.h"
#include "tests/support/scriptedServer.h"
#include "tests/support/temporaryInstallation.h"
#include "tests/support/waiting.h"
#include <catch2/catch.hpp>

using namespace std::string_literals;

/** The page with a catalogue, a server for its items and an installation folder. */
struct downloadsPage : genericlistener
{
    temporaryInstallation installation;
    scriptedServer server;
    alertRobot robot;
    juce::Array<juce::NamedValueSet> items; // what each request is answered
    std::function<void()> whileListing;
    int lists = 0;
    juce::StringArray statusLines; // when each item begins, and while its server is waited for
    std::unique_ptr<store_downloads> page = std::make_unique<store_downloads> (*this, installationFolder);

    juce::Button& button() const { return dynamic_cast<juce::Button&> (*page->getChildComponent (1)); }
    juce::Label& status() const { return dynamic_cast<juce::Label&> (*page->getChildComponent (3)); }

    void add (const juce::String& name, const juce::String& target,
              const juce::String& requirement = "000000")
    {
        items.add ({ { "dl_url", server.origin() + "/" + name + "?a&b=&c=%20" },
                     { "dl_name", name },
                     { "dl_target", installationFolder + "/" + target },
                     { "dl_buildnumber", 1 },
                     { "dl_bdr", requirement } });
    }

    void press()
    {
        button().triggerClick();
        waitFor ("the catalogue", [this, wanted = lists + 1] { return lists == wanted; });
    }

    /** Presses the button and returns the boxes of that run; on request the page goes while the first is open. */
    juce::StringArray run (bool quits = false)
    {
        const auto before = robot.texts().size();

        if (quits)
            robot.whileOpen = [this] { page.reset(); };

        press();
        waitFor ("the end of the run", [this] { return page == nullptr || button().isEnabled(); });
        drainMessages();
        auto boxes = robot.texts();
        boxes.removeRange (0, before);
        return boxes;
    }

    void handleMessage (const juce::String& text, const juce::var&, const juce::var&,
                        const juce::var&) override
    {
        CHECK ((text == "list" && ! button().isEnabled()));
        ++lists;
        juce::NullCheckedInvocation::invoke (whileListing);
    }

    juce::var handleRequest (const juce::String& text, const juce::var& index, const juce::var&,
                             const juce::var&) override
    {
        if (text == "dl_url" || text == "dl_auth")
            statusLines.add (status().getText());

        if (text == "dl_total")
            return items.size();

        return text == "dl_auth" ? "the token" : items[index][text];
    }
};

static std::string binary (const std::string& headers, const std::string& body)
{
    return "HTTP/1.1 200 OK\r\nContent-Type: application/octet-stream\r\n" + headers + "\r\n" + body;
}

static const auto chunked = "Transfer-Encoding: chunked\r\n\r\n5\r\nhello\r\n0\r\n"s;

TEST_CASE ("each reply is stored, discarded or shown as a refusal")
{
    const auto zero = "License server reports zero size binary download for file Amp"s,
               untyped = "Unknown Content-Type. Error downloading file Amp"s,
               stored = "Successfully downloaded: Amp"s, error = "Error downloading \"Amp\"\nExpected "s;
    const auto moved = replyWith ("302 Found", "Location: /moved\r\n");
    const auto ok = "HTTP/1.1 200 OK\r\n"s;

    // More than a connection can hold: the client has seen a part of it when the end comes.
    const std::string half (8000000, 'x'), large = half + half;

    const struct
    {
        std::string reply, box; // the start of the first one
        int redirects = 0;
        bool resets = false, stalls = false;
    } cases[] = {
        { {}, zero },
        { binary ("Content-Length: 4294967301\r\n", "hello"), zero },
        { binary (chunked, {}), zero },
        { moved, zero, 5 },
        { ok + "Content-Length: 5\r\n\r\nhello", untyped },
        { replyWith ("403 Forbidden", "Content-Type: text/html\r\n", "<p>Expiréd \xe9</p>"),
          "<p>Expiréd é</p>" },
        { okReply ("refused\0 and more"s, "Text/HTML; charset=utf-8"), "refused" },
        { okReply (std::string (1000000, 'x'), "text/html"), "xxxxxxxx" },
        { binary ("Content-Length: 16000001\r\n", large),
          error + "16000001 bytes, but got 16000000 bytes.\n\nThe file will be discarded." },
        { binary ("Content-Length: 20000000\r\n", large), error + "20000000 bytes, but got ", 0, true },
        { binary ("Content-Length: 3\r\nTransfer-Encoding: chunked\r\n\r\nf42400\r\n" + large, {}),
          error + "3 bytes, but got ", 0, false, true },
        { binary ("Content-Length: 3\r\n" + chunked, {}), error + "3 bytes, but got 5 bytes" },
        { binary ("Content-Length: 1000\r\n", {}), error + "1000 bytes, but got 0 bytes.", 0, true },
        { binary ("Content-Length: 1000\r\n", std::string (400, 'x')),
          error + "1000 bytes, but got 400 bytes." },
        { replyWith ("404 Not Found", "Content-Type: a/b\r\n", "hello"), zero },
        { replyWith ("503 Busy", "Content-Type: a/b\r\n", "hello"), zero },
        { replyWith ("206 Partial", "Content-Type: a/b\r\n", "hello"), zero },
        { replyWith ("203 From Elsewhere", "Content-Type: a/b\r\n", "hello"), stored },
        { binary ("Content-Length: 5\r\nTransfer-Encoding: chunked\r\n\r\n5\r\nhello\r\n", {}), stored, 0,
          false, true },
        { binary ("Content-Length: 5\r\nContent-Length: 5\r\n", "hello"), stored, 5 },
        { ok + "content-length:5\r\nDate: today\r\ncontent-type:a/b\r\n\r\nhello", stored },
    };

    for (auto& c : cases)
        for (auto quits : { false, true })
        {
            INFO (c.reply.substr (0, 200));
            downloadsPage test;
            const auto file = test.installation.write ("item.bin", "old");
            test.add ("Amp", "item.bin");

            for (int i = 0; i < c.redirects; ++i)
                test.server.reply (moved);

            test.server.reply (c.reply);

            if (c.resets)
                test.server.reset();
            else if (c.stalls)
                test.server.waitUntil();

            const auto boxes = test.run (quits);
            CHECK (boxes[0].startsWith (juce::String (c.box)));
            CHECK (boxes.size() == (boxes[0].startsWith ("Error") && ! quits ? 2 : 1));
            CHECK (file.loadFileAsString() == (boxes[0] == juce::String (stored) ? "hello" : "old"));
            CHECK (test.installation.files() == juce::StringArray{ "item.bin" });
            const auto request = test.server.requests()[0];
            CHECK (request.line() + request.header ("Authorization")
                   == "GET /Amp?a&b=&c=%20 HTTP/1.1the token");
        }
}

TEST_CASE ("a body in several chunks is written whole, and ends where there is no memory for more")
{
    temporaryInstallation installation;
    const auto file = installation.folder.getChildFile ("item");
    juce::MemoryInputStream source ("twelve bytes", 12, false);
    receiveBuffer body (5), endless (std::numeric_limits<size_t>::max() / 4);
    CHECK (endless.makeSpace().size == 0);

    while (! source.isExhausted())
    {
        const auto space = body.makeSpace();
        body.add (source.read (space.start, juce::jmin (3, space.size)));
    }

    safeFileWriter writer (file);
    CHECK ((body.writeTo (writer) && writer.commit() && file.loadFileAsString() == "twelve bytes"));
}

TEST_CASE ("a run goes through all outcomes and sums them up, and the next one fetches what failed")
{
    downloadsPage test;
    const auto root = installationFolder + "/";
    const auto bytes = archiveWriter{ 4, { { "buildnumber.txt", "1" } } }.write();
    const auto item = okReply ({ bytes.begin(), bytes.end() }, "application/octet-stream");
    test.installation.write ("current/buildnumber.txt", "1");
    test.installation.write ("folder/keep.txt", "kept");

    test.add ("A", "new/a.sa");
    test.add ("Cut", "cut.sa");
    test.add ("New", "new.sa", "150407");
    test.add ("Folder", "folder");
    test.add ("Old", "current");
    test.add ("Out", "../out.sa");
    test.add ("B", "sub\\b");
    test.add ("B", "sub/b"); // current by then
    test.server.reply (item).reply (binary ("Content-Length: 3\r\n" + chunked, {})).reply (item).reply (item);

    const juce::String have ("Successfully downloaded: "), notWritten ("Failed to write file:\n" + root);
    const auto outOfDate = "Some items are licensed to you but were not downloaded because the program is "
                           "out of date. Please update "
                           "Klangora 4 at "
                           + test.server.origin() + "/update to access these items:\n\nNew";
    const auto current = [] (const juce::String& number) {
        return "Additionally, there were " + number + " items already up-to-date that were not downloaded.";
    };

    CHECK (test.run()
           == juce::StringArray{
               "Error downloading \"Cut\"\nExpected 3 bytes, but got 5 bytes.\n\nThe file will be discarded.",
               notWritten + "folder", notWritten + "../out.sa",
               "Failed to save file(s): " + root + "cut.sa, " + root + "folder, " + root + "../out.sa",
               have + "A, B", outOfDate, current ("2") });
    CHECK (test.statusLines[1] + test.statusLines[2] == "File 1/8 - A File 1/8 - A 100%");
    CHECK (test.installation.files()
           == juce::StringArray{ "current/buildnumber.txt", "folder/keep.txt", "new/a.sa", "sub/b" });

    test.items.remove (5);
    test.items.remove (3);
    test.server.reply (item);
    CHECK (test.run() == juce::StringArray{ have + "Cut", outOfDate, current ("4") });

    test.items.clear();
    CHECK ((test.run().isEmpty() && test.status().getText().isEmpty()));

    // A program that was killed left a file in the folder of an item that is current.
    juce::File left;
    {
        const temporaryFile writing (test.installation.folder, temporaryFile::readers::everybody);
        left = test.installation.folder.findChildFiles (juce::File::findFiles, false, "rigmart-*").getFirst();
    }
    REQUIRE (left.create().wasOk());

    while (test.items.size() < 10000)
        test.add ("Old", "current");

    test.items.add ({ { "dl_url", "" }, { "dl_bdr", "999999" } }); // the end, whatever follows
    CHECK (test.run() == juce::StringArray{ "All contents up-to-date.", current ("10000") });
    CHECK_FALSE (left.exists());
}

TEST_CASE ("the user may quit when the catalogue fails, when an item is misplaced and while one is received")
{
    std::optional<downloadsPage> test (std::in_place);
    test->whileListing = [] { showAttention ("failed"); };
    CHECK (test->run (true) == juce::StringArray{ "failed" });
    test.emplace().add ("Amp", "../amp.bin");
    CHECK (test->run (true)[0].startsWith ("Failed to write file:\n"));

    test.emplace().add ("Amp", "amp");
    test->installation.write ("amp.sa", archiveWriter{ 5, { { "a", "1" } } }.write());
    CHECK (test->run (true)[0].startsWith ("The packed archive "));

    test.emplace().add ("Amp", "amp.bin");
    test->server.reply (binary ("Content-Length: 9\r\n", "hello")).waitUntil();
    test->press();
    test->page.reset();
    drainMessages();
    CHECK (test->robot.texts().isEmpty());
}

TEST_CASE ("a double click on the button starts one run, and a click elsewhere on it another")
{
    downloadsPage test;
    test.page->addToDesktop (0);
    test.page->setVisible (true);

    const std::pair<int, int> clicks[] = { { 20, 1 }, { 20, 1 }, { 100, 2 } }; // where, and the runs by then

    for (auto& [x, runs] : clicks)
    {
        click (test.button(), x, 10);
        mouse (test.button(), x, 10, false);
        drainMessages();
        CHECK (test.lists == runs);
    }
}
