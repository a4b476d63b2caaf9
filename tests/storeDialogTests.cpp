#include "app/installationPaths.h"
#include "store/jStoreDialog.h"
#include "store/showAttention.h"
#include "tests/support/alertRobot.h"
#include "tests/support/scriptedServer.h"
#include "tests/support/temporaryInstallation.h"
#include "tests/support/waiting.h"
#include "ui/busyCursor.h"
#include <catch2/catch.hpp>

using namespace std::string_literals;

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
        const auto sent = store.server.requests().back();
        CHECK (
            sent.line()
            == (request == "POST auth" ? "POST /api/auth.cfm HTTP/1.1" : "POST /api/register.cfm HTTP/1.1"));
        CHECK (sent.body()
               == (request == "POST auth" ? "emailaddr=" : "email=") + "me%2B1%40x.org&password=a%26b"s);
        CHECK (sent.header ("Authorization").empty());

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
        juce::StringArray fields;

        for (auto* request : { "dl_url", "dl_target", "dl_name", "dl_buildnumber", "dl_bdr" })
            fields.add (store.ask (request, index));

        return fields.joinIntoString ("|");
    };
    const auto catalogue =
        okReply ("<r><downloadable url=\"u?a&amp;b\" target=\"d/f.sa\" name=\"n\"/><downloadable url=\"x\"/>"
                 "<downloadable url=\"v\" target=\"g\" name=\"m\" buildnumber=\"7\""
                 " builddaterequirement=\"150406\"/></r>");
    store.server.reply (catalogue).reply (okReply ("<r error=\"Broken.\"/>")).reply (okReply (""));
    store.list();
    CHECK (store.ask ("dl_total").equalsWithSameType (2));
    CHECK (item (0) == "u?a&b|" + installationFolder + "/d/f.sa|n|-1|000000");
    CHECK (item (1) == "v|" + installationFolder + "/g|m|7|150406");
    CHECK (item (-1) + item (2) == "||||000000||||000000");
    store.list();
    CHECK (store.ask ("dl_total").equalsWithSameType (0));
    store.list();
    CHECK (store.newBoxes()
           == juce::StringArray{
               "License server returns an error when trying to get list of downloadable items:\n\nBroken.",
               noData,
               "License server did not return a proper list of downloadable items, and did not provide an "
               "error message." });
}

TEST_CASE ("of two pages shown in quick succession the last one stays, sized to its content and centred")
{
    juce::Component pages[2], child;
    pages[1].addAndMakeVisible (child);
    child.setBounds (20, 30, 200, 100);
    openStore store;

    for (auto index : { 0, 1, 0, 1 })
        store.dialog.showPage (&pages[index], 30);

    waitFor ("the end of the fades",
             [&] { return ! juce::Desktop::getInstance().getAnimator().isAnimating(); });
    CHECK ((! pages[0].isVisible() && pages[1].isVisible() && pages[1].getAlpha() == 1.0f));
    CHECK (pages[1].getBounds() == juce::Rectangle<int> (230, 170, 240, 160));
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

TEST_CASE ("the focus comes back to its control after a message box")
{
    const openStore store;
    const auto focused = [] { return juce::Component::getCurrentlyFocusedComponent(); };
    store.dialog.handleMessage ("intro done", {}, {}, {});
    waitFor ("the first field", [&] { return dynamic_cast<juce::TextEditor*> (focused()) != nullptr; });

    for (int i = 0; i < 12; ++i)
    {
        focused()->moveKeyboardFocusToSibling (true);
        const auto* control = focused();
        showAttention ("A box.");
        waitFor ("the focus", [&] { return focused() == control; });
    }
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

    bool cursorShown = false, painted = false;
    store.server.reply().waitUntil ([&] {
        cursorShown = busyCursor::isShown();
        painted = window.painted;
        return true;
    });
    store.ask ("POST auth", "me@x.org", "secret");

    CHECK (cursorShown);
    CHECK (painted);
    CHECK_FALSE (busyCursor::isShown());
}
