#include "base/safeFileWriter.h"
#include "content/receiveBuffer.h"
#include "content/store_downloads.h"
#include "store/showAttention.h"
#include "tests/support/dataTable.h"
#include "tests/support/downloadsRun.h"
#include "tests/support/script.h"
#include <catch2/catch.hpp>

namespace
{
/** The page on the screen with a catalogue. */
struct downloadsPage : scene, catalogueOwner
{
    bool canList = true;
    std::unique_ptr<store_downloads> page = std::make_unique<store_downloads> (*this, installation.path);

    downloadsPage()
    {
        whenCalled = [this] (auto& call) { note (call); };
        page->addToDesktop (0);
        page->setVisible (true);
        acts["item"] = [this] (auto& a) { items.add (itemOf (a)); };
        acts["10000 items"] = [this] (auto& a) { items.insertMultiple (0, itemOf (a), 10000); };
        acts["the end, whatever follows"] = [this] (auto&) { items.add ({ {}, {}, {}, 1, "999999" }); };
        acts["no items"] = [this] (auto&) { items.clear(); };
        acts["the catalogue fails"] = [this] (auto&) { canList = false; };

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
            mouse (button(), a[0].getIntValue(), 10);
        };
    }

    juce::Button& button() const { return find<juce::Button> (*page, "Download!"); }
    juce::String status() const { return textOf (*findAll<statusLabel> (*page).front()).trimEnd(); }

    /** An item by its name, its target and the program that it requires. */
    DownloadItem itemOf (const juce::StringArray& a) const
    {
        return { server.origin() + "/" + a[0] + "?a&b=&c=%20", a[1], a[0], 1,
                 a[2].isEmpty() ? "000000" : a[2] };
    }

    void press()
    {
        button().triggerClick();
        waitFor ("the catalogue", [this, wanted = lists + 1] { return lists == wanted; });
    }

    void note (const juce::String& call)
    {
        if (call != "list")
            events.addIfNotAlreadyThere ("status: " + status());
        else
            events.add (button().isEnabled() ? "list, the button is enabled" : "list");

        if (call == "list" && ! canList)
            showAttention ("The catalogue failed.");
    }

    juce::StringArray look() override
    {
        auto lines = scene::look();
        lines.add (page == nullptr ? "no page" : "status: " + status());

        if (page != nullptr && listsFailure())
            lines.add ("a failure is listed");

        return lines;
    }

    /** Whether there is something red below the banner. */
    bool listsFailure() const
    {
        const auto picture = page->createComponentSnapshot (page->getLocalBounds().withTop (100));

        for (int i = 0; i < picture.getWidth() * picture.getHeight(); ++i)
            if (const auto c = picture.getPixelAt (i % picture.getWidth(), i / picture.getWidth());
                c.getRed() > 200 && 3 * c.getGreen() < 2 * c.getRed())
                return true;

        return false;
    }
};
}

TEST_CASE ("the downloads page does what the script says")
{
    playScript ("downloads-script", [] { return std::make_unique<downloadsPage>(); });
}

TEST_CASE_METHOD (temporaryInstallation,
                  "a body is written whole, chunk by chunk, and ends where there is no memory")
{
    juce::MemoryInputStream source ("twelve bytes", 12, false);
    receiveBuffer body (5), endless (std::numeric_limits<size_t>::max() / 4);
    CHECK (endless.makeSpace().size == 0);

    while (! source.isExhausted())
    {
        const auto space = body.makeSpace();
        body.add (source.read (space.start, juce::jmin (3, space.size)));
    }

    safeFileWriter writer (folder.getChildFile ("item"));
    CHECK (body.moveTo (writer));
    CHECK (writer.commit());
    CHECK (bytesOf (folder.getChildFile ("item")) == "twelve bytes");
}
