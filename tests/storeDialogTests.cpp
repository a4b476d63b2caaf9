#include "app/installationPaths.h"
#include "store/jStoreDialog.h"
#include "store/showAttention.h"
#include "tests/support/alertRobot.h"
#include "tests/support/scriptedServer.h"
#include "tests/support/temporaryInstallation.h"
#include "tests/support/waiting.h"
#include "ui/busyCursor.h"
#include <catch2/catch.hpp>

namespace
{
const juce::String noData (
    "No data returned from web server. Klangora needs an Internet connection to complete this request.");
const juce::String quitQuestion (
    "This will close your connections with the Dorvik Rigmart store. Do you want to quit? [Quit|Go back]");
const std::string refusedLogin = okReply ("<r><message>No.</message></r>");
const std::string acceptedLogin = okReply ("<r><sessiontoken>a token</sessiontoken></r>");

/** The dialog in its window, with a server, an installation folder and a person at the message boxes. Closing the
    dialog ends the framework, so there is one of these in a run. */
struct openStore
{
    temporaryInstallation installation;
    scriptedServer server;
    alertRobot robot;
    jStoreDialog& dialog{ *new jStoreDialog (nullptr) };
    juce::Component::SafePointer<juce::Component> isOpen{ &dialog };

    ~openStore() { delete isOpen.getComponent(); }

    juce::var ask (const juce::String& request, const juce::var& a = {}, const juce::var& b = {}) const
    {
        return dialog.handleRequest (request, a, b, {});
    }

    void list() const { dialog.handleMessage ("list", {}, {}, {}); }

    /** The boxes since the last call. */
    juce::StringArray newBoxes()
    {
        auto boxes = robot.texts();
        boxes.removeRange (0, std::exchange (seenBefore, boxes.size()));
        return boxes;
    }

private:
    int seenBefore = 0;
};
}

TEST_CASE ("the service's answers decide on a log-on and on a new account")
{
    const juce::String unspecified ("Unspecified error.");
    const std::tuple<juce::String, const char*, bool, juce::StringArray> rows[] = {
        { "POST auth", "<r><sessiontoken>t</sessiontoken><message>hi</message></r>", true, {} },
        { "POST auth",
          "<r><message>wrong <b>it is</b></message><sessiontoken/></r>",
          false,
          { "wrong it is" } },
        { "POST auth", "<r><SessionToken>x</SessionToken></r>", false, { unspecified } },
        { "POST auth", "", false, { noData } },
        { "POST create", "<r><status>success</status><status>2</status></r>", true, { unspecified } },
        { "POST create", "<r><status> success</status><message>Hm.</message></r>", false, { "Hm." } },
        { "POST create", "<r><Status>success</Status><message/></r>", false, { "" } },
        { "POST create", "", false, { noData } },
    };

    openStore store;

    for (auto& [request, reply, isSuccess, boxes] : rows)
    {
        INFO (request << " " << reply);
        store.server.reply (acceptedLogin).reply (okReply (reply)).reply (okReply ("<r/>"));
        CHECK (store.ask ("POST auth", "old@x.org", "old").equalsWithSameType (1));
        CHECK (store.ask (request, "me+1@x.org", "a&b")
                   .equalsWithSameType (isSuccess ? juce::var (1) : juce::var()));
        CHECK (store.newBoxes() == boxes);

        // Both requests end the earlier login, and only one of them begins another.
        const auto loggedOn = isSuccess && request == "POST auth";
        store.list();
        const auto listing = store.server.requests().back();
        CHECK (listing.body()
               == "enduser%3D" + std::string (loggedOn ? "me%2B1%40x.org" : "") + "%26list%3Dmediareview");
        CHECK (listing.header ("Authorization") == (loggedOn ? "t" : ""));
    }
}

TEST_CASE ("the catalogue is handed out item by item, and is empty after a failure")
{
    openStore store;
    const auto item = [&] (int index) {
        return store.ask ("dl_url", index).toString() + "|" + store.ask ("dl_target", index).toString() + "|"
               + store.ask ("dl_name", index).toString() + "|"
               + store.ask ("dl_buildnumber", index).toString() + "|"
               + store.ask ("dl_bdr", index).toString();
    };
    const auto catalogue =
        okReply ("<r><downloadable url=\"u?a&amp;b\" target=\"d/f.sa\" name=\"n\"/><downloadable url=\"x\"/>"
                 "<downloadable url=\"v\" target=\"g\" name=\"m\" buildnumber=\"7\""
                 " builddaterequirement=\"150406\"/></r>");
    const juce::String returnsError (
        "License server returns an error when trying to get list of downloadable items:\n\n");
    const std::pair<const char*, juce::StringArray> failures[] = {
        { "<r error=\"Broken.\"/>", { returnsError + "Broken." } },
        { "<r status=\"failure\" message=\"Down.\"/>", { returnsError + "Down." } },
        { "",
          { noData,
            "License server did not return a proper list of downloadable items, and did not provide an "
            "error message." } },
        { "<r/>", {} },
    };

    for (auto& [failure, boxes] : failures)
    {
        store.server.reply (catalogue).reply (okReply (failure));
        store.list();
        CHECK (store.ask ("dl_total").equalsWithSameType (2));
        CHECK (item (0) == "u?a&b|" + installationFolder + "/d/f.sa|n|-1|000000");
        CHECK (item (1) == "v|" + installationFolder + "/g|m|7|150406");
        CHECK (item (-1) + item (2) == "||||000000||||000000");
        store.list();
        CHECK (store.newBoxes() == boxes);
        CHECK (store.ask ("dl_total").equalsWithSameType (0));
    }
}

TEST_CASE ("of two pages shown in quick succession the last one stays, sized to its content and centred")
{
    juce::Component pages[2], child;
    pages[1].addAndMakeVisible (child);
    child.setBounds (20, 30, 200, 100);
    openStore store;
    auto& animator = juce::Desktop::getInstance().getAnimator();

    for (auto index : { 0, 1, 0, 1 })
        store.dialog.showPage (&pages[index], 30);

    waitFor ("the end of the fades", [&] { return ! animator.isAnimating(); });

    for (auto* shown : store.dialog.getChildren())
        CHECK (shown->isVisible() == (shown == &pages[1]));

    CHECK (pages[1].getBounds() == juce::Rectangle<int> (230, 170, 240, 160));
    CHECK (pages[1].getAlpha() == 1.0f);
}

TEST_CASE ("the dialog may be gone when a message box closes")
{
    openStore store;
    store.server.reply (refusedLogin);
    store.robot.whileOpen = [&] { delete &store.dialog; };
    CHECK (store.ask ("POST auth", "me@x.org", "wrong").isVoid());
    CHECK (store.isOpen == nullptr);
}

TEST_CASE ("quitting is asked for, once at a time")
{
    openStore store;
    store.robot.answer ("Go back").answer ("Quit");
    store.robot.whileOpen = [&] { store.dialog.requestClose(); };
    store.dialog.requestClose();
    REQUIRE (store.isOpen != nullptr);
    store.dialog.requestClose();
    CHECK (store.newBoxes() == juce::StringArray (quitQuestion, quitQuestion));
    CHECK (store.isOpen == nullptr);
}

TEST_CASE ("while the service is silent the wait cursor shows, over what was painted before")
{
    struct : juce::Component
    {
        std::atomic<bool> painted{ false };
        void paint (juce::Graphics&) override { painted = true; }
    } window;

    openStore store;
    window.setBounds (0, 0, 50, 50);
    window.addToDesktop (juce::ComponentPeer::windowIsTemporary);
    window.setVisible (true);
    window.repaint();
    window.getPeer()->performAnyPendingRepaintsNow(); // a picture that may still be on its way to the screen
    window.painted = false;
    window.repaint();

    store.server.reply().pause (1000).send (acceptedLogin);
    bool cursorShown = false, painted = false;
    std::thread person ([&] {
        while (store.server.requests().empty())
            std::this_thread::yield();

        cursorShown = busyCursor::isShown();
        painted = window.painted;
    });
    store.ask ("POST auth", "me@x.org", "secret");
    person.join();

    CHECK (cursorShown);
    CHECK (painted);
    CHECK_FALSE (busyCursor::isShown());
}

TEST_CASE ("the focus comes back to its control after a message box")
{
    const openStore store;
    const auto focused = [] { return juce::Component::getCurrentlyFocusedComponent(); };
    store.dialog.handleMessage ("intro done", {}, {}, {});
    waitFor ("the page's first field",
             [&] { return dynamic_cast<juce::TextEditor*> (focused()) != nullptr; });

    for (int i = 0; i < 12; ++i)
    {
        focused()->moveKeyboardFocusToSibling (true);
        const auto* control = focused();
        showAttention ("A box.");
        waitFor ("the focus", [&] { return focused() == control; });
    }
}
