#include "app/installationPaths.h"
#include "base/safeFileWriter.h"
#include "content/receiveBuffer.h"
#include "content/store_downloads.h"
#include "sandbox/archiveWriter.h"
#include "store/showAttention.h"
#include "tests/support/componentText.h"
#include "tests/support/dataTable.h"
#include "tests/support/mouse.h"
#include "tests/support/script.h"
#include "tests/support/scriptedServer.h"
#include "tests/support/temporaryInstallation.h"
#include "tests/support/waiting.h"
#include <catch2/catch.hpp>

namespace
{
/** The page on the screen with a catalogue, a server for its items and an installation folder. */
struct downloadsPage : scene, genericlistener
{
    temporaryInstallation installation;
    scriptedServer server;
    juce::Array<juce::NamedValueSet> items; // what each request is answered
    bool canList = true;
    int lists = 0;
    std::unique_ptr<store_downloads> page = std::make_unique<store_downloads> (*this, installationFolder);

    downloadsPage()
    {
        page->addToDesktop (0);
        page->setVisible (true);
        acts["item"] = [this] (auto& a) { addItem (a[0], a[1], a[2]); };
        acts["10000 items"] = [this] (auto& a) {
            for (int i = 0; i < 10000; ++i)
                addItem (a[0], a[1], {});
        };
        acts["the end, whatever follows"] = [this] (auto&) { items.add ({ { "dl_bdr", "999999" } }); };
        acts["no items"] = [this] (auto&) { items.clear(); };
        acts["the catalogue fails"] = [this] (auto&) { canList = false; };

        acts["file"] = [this] (auto& a) { installation.write (a[0], a[1]); };
        acts["archive of version"] = [this] (auto& a) {
            installation.write (a[1],
                                archiveWriter{ (juce::uint32) a[0].getIntValue(), { { "a", "1" } } }.write());
        };
        acts["a program was killed"] = [this] (auto&) { leaveTemporaryFile(); };

        acts["reply"] = [this] (auto& a) { server.reply (expanded (a[0].toStdString())); };
        acts["then silence"] = [this] (auto&) { server.waitUntil(); };
        acts["then reset"] = [this] (auto&) { server.reset(); };

        acts["quit in a box"] = [this] (auto&) { robot.whileOpen = [this] { page.reset(); }; };
        acts["begin"] = [this] (auto&) {
            press();
            waitFor ("a part of the body", [this] { return status().endsWith ("%"); });
        };
        acts["quit"] = [this] (auto&) { page.reset(); };
        acts["run"] = [this] (auto&) {
            press();
            waitFor ("the end of the run", [this] { return page == nullptr || button().isEnabled(); });
        };
        acts["click at"] = [this] (auto& a) {
            click (button(), a[0].getIntValue(), 10);
            mouse (button(), a[0].getIntValue(), 10, false);
        };
    }

    juce::Button& button() const { return find<juce::Button> (*page, "Download!"); }
    juce::String status() const { return textOf (*findAll<statusLabel> (*page).front()).trimEnd(); }

    void addItem (const juce::String& name, const juce::String& target, const juce::String& requirement)
    {
        items.add ({ { "dl_url", server.origin() + "/" + name + "?a&b=&c=%20" },
                     { "dl_name", name },
                     { "dl_target", installationFolder + "/" + target },
                     { "dl_buildnumber", 1 },
                     { "dl_bdr", requirement.isEmpty() ? "000000" : requirement } });
    }

    void leaveTemporaryFile() const
    {
        juce::File left;
        {
            const temporaryFile writing (installation.folder, temporaryFile::readers::everybody);
            left = installation.folder.findChildFiles (juce::File::findFiles, false, "rigmart-*").getFirst();
        }
        REQUIRE (left.create().wasOk());
    }

    void press()
    {
        button().triggerClick();
        waitFor ("the catalogue", [this, wanted = lists + 1] { return lists == wanted; });
    }

    void handleMessage (const juce::String& text, const juce::var&, const juce::var&,
                        const juce::var&) override
    {
        events.add (text + (button().isEnabled() ? ", the button is enabled" : ""));
        ++lists;

        if (! canList)
            showAttention ("The catalogue failed.");
    }

    juce::var handleRequest (const juce::String& text, const juce::var& index, const juce::var&,
                             const juce::var&) override
    {
        events.addIfNotAlreadyThere ("status: " + status());

        if (text == "dl_total")
            return items.size();

        return text == "dl_auth" ? "the token" : items[index][text];
    }

    juce::StringArray look() override
    {
        juce::StringArray lines;
        int number = 0;

        for (auto& path : installation.files())
            lines.add ("file " + (path.startsWith ("rigmart-") ? "of another program" : path) + ", "
                       + juce::String (installation.folder.getChildFile (path).getSize()) + " bytes");

        for (auto& request : server.requests())
            lines.add ("request " + juce::String (++number) + ": " + request.line()
                       + " | token: " + request.header ("Authorization"));

        lines.add (page == nullptr ? "no page" : "status: " + status());
        return lines;
    }
};
}

TEST_CASE ("the downloads page does what the script says")
{
    playScript ("downloads-script", [] { return std::make_unique<downloadsPage>(); });
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
    CHECK (body.moveTo (writer));
    CHECK (writer.commit());
    CHECK (file.loadFileAsString() == "twelve bytes");
}
