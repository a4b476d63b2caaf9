#include "app/installationPaths.h"
#include "store/jStoreDialog.h"
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
const juce::String
    quitQuestion ("This will close your connections with the Dorvik Rigmart store. Do you want to quit?");
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

    /** Waits until a page has come, with the keyboard focus in it, as the window system sees it too. */
    template <typename Page>
    static void awaitPage()
    {
        waitFor ("a page with the focus", [] {
            const auto* focused = juce::Component::getCurrentlyFocusedComponent();
            return focused != nullptr && focused->findParentComponentOfClass<Page>() != nullptr
                   && focused->getPeer()->isFocused()
                   && ! juce::Desktop::getInstance().getAnimator().isAnimating();
        });
    }

    /** A key as the window system delivers it, which is after everything that came before. */
    void press (const juce::KeyPress& key)
    {
        handleQueuedEvents();
        dialog.getPeer()->handleKeyPress (key);
        drainMessages();
    }

    void type (const juce::String& text)
    {
        for (auto c : text)
            press ({ (int) c, {}, c });
    }

private:
    int seenBefore = 0;
};

const juce::KeyPress tab (juce::KeyPress::tabKey),
    backTab (juce::KeyPress::tabKey, juce::ModifierKeys::shiftModifier, 0), enter (juce::KeyPress::returnKey),
    space (juce::KeyPress::spaceKey), escape (juce::KeyPress::escapeKey);

/** What a person would call the control with the focus. */
juce::String focusedControl()
{
    auto* control = juce::Component::getCurrentlyFocusedComponent();
    auto* button = dynamic_cast<juce::Button*> (control);
    return button != nullptr ? button->getButtonText() : (control != nullptr ? control->getTitle() : "");
}
}

TEST_CASE ("the service's answers decide on a log-on and on a new account")
{
    struct row
    {
        const char *request, *reply;
        bool isSuccess;
        juce::StringArray boxes;
    };

    const juce::String unspecified ("Unspecified error.");
    const row table[] = {
        { "POST auth", "<r><sessiontoken>t</sessiontoken><message>hi</message></r>", true, {} },
        { "POST auth", "<r><sessiontoken></sessiontoken><message>No.</message></r>", false, { "No." } },
        { "POST auth", "<r/>", false, { unspecified } },
        { "POST auth", "", false, { noData } },
        { "POST create", "<r><status>success</status><message>Done.</message></r>", true, { "Done." } },
        { "POST create", "<r><status>success</status></r>", true, { unspecified } },
        { "POST create", "<r><status>Success</status><message>Hm.</message></r>", false, { "Hm." } },
        { "POST create", "<r><message>Hm.</message></r>", false, { "Hm." } },
        { "POST create", "", false, { noData } },
    };

    openStore store;

    for (auto& row : table)
    {
        INFO (row.request << " " << row.reply);
        store.server.reply (acceptedLogin).reply (okReply (row.reply)).reply (okReply ("<r/>"));
        CHECK (store.ask ("POST auth", "old@x.org", "old").equalsWithSameType (1));
        CHECK (store.ask ("dl_auth") == "a token");

        const auto answer = store.ask (row.request, "me+1@x.org", "a&b");
        CHECK (answer.equalsWithSameType (row.isSuccess ? juce::var (1) : juce::var()));
        CHECK (store.newBoxes() == row.boxes);

        // Both requests end the earlier login, and only one of them begins another.
        const auto loggedOn = row.isSuccess && juce::String (row.request) == "POST auth";
        CHECK (store.ask ("dl_auth") == (loggedOn ? "t" : ""));
        store.list();
        const auto request = store.server.requests().back();
        CHECK (request.body()
               == "enduser%3D" + std::string (loggedOn ? "me%2B1%40x.org" : "") + "%26list%3Dmediareview");
        CHECK (request.header ("Authorization") == (loggedOn ? "t" : ""));
    }

    CHECK (store.ask ("POST nothing").isVoid());
}

TEST_CASE ("the catalogue is handed out item by item, and is empty after a failure")
{
    openStore store;
    const auto item = [&] (int index) {
        juce::StringArray fields;

        for (auto* request : { "dl_url", "dl_target", "dl_name", "dl_buildnumber", "dl_bdr" })
            fields.add (store.ask (request, index).toString());

        return fields.joinIntoString ("|");
    };

    const auto catalogue =
        okReply ("<r><downloadable url=\"u?a&amp;b\" target=\"d/f.sa\" name=\"n\"/><downloadable url=\"x\"/>"
                 "<downloadable url=\"v\" target=\"g\" name=\"m\" buildnumber=\"7\""
                 " builddaterequirement=\"150406\"/></r>");

    const juce::String returnsError (
        "License server returns an error when trying to get list of downloadable items:\n\n");
    const std::pair<std::string, juce::StringArray> failures[] = {
        { okReply ("<r error=\"Broken.\"/>"), { returnsError + "Broken." } },
        { okReply ("<r status=\"failure\" message=\"Down.\"/>"), { returnsError + "Down." } },
        { okReply (""),
          { noData,
            "License server did not return a proper list of downloadable items, and did not provide an "
            "error message." } },
        { okReply ("<r/>"), {} },
    };

    for (auto& [failure, boxes] : failures)
    {
        store.server.reply (catalogue).reply (failure);
        store.list();
        CHECK (store.ask ("dl_total").equalsWithSameType (2));
        CHECK (item (0) == "u?a&b|" + installationFolder + "/d/f.sa|n|-1|000000");
        CHECK (item (1) == "v|" + installationFolder + "/g|m|7|150406");
        CHECK (store.ask ("dl_buildnumber", 0).isInt());

        for (auto outside : { -1, 2 })
            CHECK (item (outside) == "||||000000");

        CHECK (store.newBoxes().isEmpty());
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
    store.dialog.showPage (&pages[0], 50);
    store.dialog.showPage (&pages[1], 20);
    store.dialog.showPage (&pages[0], 20);
    store.dialog.showPage (&pages[1], 20);
    waitFor ("the end of the fades", [&] { return ! animator.isAnimating(); });

    for (auto* shown : store.dialog.getChildren())
        CHECK (shown->isVisible() == (shown == &pages[1]));

    CHECK (pages[1].getBounds() == juce::Rectangle<int> (230, 170, 240, 160));
    CHECK (pages[1].getAlpha() == 1.0f);
    CHECK (pages[0].getBounds().isEmpty());

    store.dialog.showPage (&pages[1], 20);
    CHECK_FALSE (animator.isAnimating());
}

TEST_CASE ("a whole session needs no mouse")
{
    openStore store;
    store.server.reply (refusedLogin).reply (acceptedLogin);

    store.awaitPage<store_intro>();
    CHECK (focusedControl() == "Log on...");
    store.press (space);
    store.awaitPage<store_auth>();

    juce::StringArray stops;

    for (int i = 0; i < 9; ++i)
    {
        stops.add (focusedControl());
        store.press (tab);
    }

    CHECK (stops.joinIntoString (", ")
           == "Email address, Password, Remember me, Email address, Confirm email, Password, "
              "Confirm password, QUIT, Email address");

    store.press (backTab);
    store.type ("me@x.org");
    store.press (enter);
    store.type ("s'e+c ret");
    store.press (tab);
    CHECK (focusedControl() == "Authenticate");
    store.press (tab);
    store.robot.answer (enter);
    store.press (space);
    store.awaitPage<store_auth>();
    store.press (backTab);
    store.robot.answer (escape);
    store.press (enter);
    store.awaitPage<store_auth>();
    CHECK (focusedControl() == "Authenticate");
    CHECK (store.newBoxes()[1] == "No.");
    store.press (enter);

    store.awaitPage<store_downloads>();
    CHECK (store.server.requests().back().body() == "emailaddr=me%40x.org&password=s'e%2Bc%20ret");
    CHECK (store.installation.files() == juce::StringArray{ "rememberme.txt" });

    store.robot.answer (escape);
    store.press (escape);
    store.awaitPage<store_downloads>();
    store.press (tab);
    CHECK (focusedControl() == "QUIT");
    store.robot.answer (enter);
    store.press (enter);
    CHECK (store.isOpen == nullptr);
    CHECK (store.newBoxes() == juce::StringArray (quitQuestion, quitQuestion));
    CHECK (juce::MessageManager::getInstance()->hasStopMessageBeenSent());
}

TEST_CASE ("quitting is asked for once at a time, and may come while a message box is open")
{
    openStore store;
    const auto inBox = GENERATE (false, true);

    if (inBox)
    {
        store.server.reply (refusedLogin);
        store.robot.whileOpen = [&] (auto&) { delete &store.dialog; };
        CHECK (store.ask ("POST auth", "me@x.org", "wrong").isVoid());
    }
    else
    {
        store.robot.answer ("Go back").answer ("Quit");
        store.robot.whileOpen = [&] (auto&) { store.dialog.requestClose(); };
        store.dialog.requestClose();
        REQUIRE (store.isOpen != nullptr);
        store.dialog.requestClose();
        CHECK (store.newBoxes() == juce::StringArray (quitQuestion, quitQuestion));
        CHECK (store.robot.seen()[0].title == "Klangora 4");
        CHECK (store.robot.seen()[0].buttons == juce::StringArray ("Quit", "Go back"));
    }

    CHECK (store.isOpen == nullptr);
}

TEST_CASE ("while the service is silent the wait cursor shows, over what was painted before")
{
    struct : juce::Component
    {
        bool painted = false;
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
