#include "app/installationPaths.h"
#include "store/jStoreDialog.h"
#include "store/showAttention.h"
#include "tests/support/componentText.h"
#include "tests/support/dataTable.h"
#include "tests/support/script.h"
#include "ui/busyCursor.h"
#include <catch2/catch.hpp>

namespace
{
/** The dialog in its window. */
struct openStore : scene
{
    juce::Component::SafePointer<jStoreDialog> dialog;

    openStore()
    {
        acts["the installation folder becomes"] = [this] (auto& a) {
            installationFolder = a[0].replace ("FOLDER", installation.path);
        };
        acts["open"] = [this] (auto&) { dialog = new jStoreDialog (nullptr); };
        acts["press"] = [this] (auto& a) { find<juce::Button> (store(), a[0]).triggerClick(); };
        acts["describe the window"] = [this] (auto&) {
            events.addArray (componentText (*store().getTopLevelComponent()));
        };
        acts["describe the page"] = [this] (auto&) { describePages(); };
        acts["describe boxes"] = [this] (auto&) { robot.whileOpen = [this] { describeBox(); }; };

        acts["reply"] = [this] (auto& a) { server.reply (okReply (expanded (a[0].toStdString()))); };
        acts["ask"] = [this] (auto& a) {
            const auto answer = store().handleRequest (a[0], a[1], a[2], {});
            const auto isText = answer.isString();
            events.add ("answer: " + (isText ? answer.toString().quoted() : juce::JSON::toString (answer)));
        };
        acts["tell"] = [this] (auto& a) { store().handleMessage (a[0], {}, {}, {}); };
        acts["wait for the focus"] = [] (auto& a) {
            waitFor ("the focus", [&] { return focusedText() == a[0]; });
        };
        acts["tab"] = [this] (auto&) {
            juce::Component::getCurrentlyFocusedComponent()->moveKeyboardFocusToSibling (true);
            events.add ("focus: " + focusedText());
        };
        acts["a box opens"] = [] (auto& a) { showAttention (a[0]); };
        acts["close"] = [this] (auto&) { store().requestClose(); };
        acts["the answer will be"] = [this] (auto& a) { robot.answers.add (a[0]); };
        acts["close again while a box is open"] = [this] (auto&) {
            robot.whileOpen = [this] { store().requestClose(); };
        };
        acts["delete it while a box is open"] = [this] (auto&) {
            robot.whileOpen = [this] { delete dialog.getComponent(); };
        };
    }

    ~openStore() override { delete dialog.getComponent(); }

    jStoreDialog& store() const
    {
        REQUIRE (dialog != nullptr);
        return *dialog;
    }

    /** Those that show once all fades are over. */
    void describePages()
    {
        waitFor ("the page", [] { return ! juce::Desktop::getInstance().getAnimator().isAnimating(); });

        for (auto* page : store().getChildren())
            if (page->isVisible())
                events.addArray (componentText (*page));
    }

    /** The box that is open, without what depends on the fonts of the machine. */
    void describeBox()
    {
        const auto& manager = *juce::ModalComponentManager::getInstance();
        const auto& box = dynamic_cast<juce::AlertWindow&> (*manager.getModalComponent (0));
        const auto isQuestion = box.getAlertType() == juce::MessageBoxIconType::QuestionIcon;
        events.add (juce::String (isQuestion ? "question: " : "info: ") + box.getDescription());

        for (auto* button : findAll<juce::TextButton> (box))
            for (auto key :
                 { juce::KeyPress (juce::KeyPress::returnKey), juce::KeyPress (juce::KeyPress::escapeKey) })
                if (button->isRegisteredForShortcut (key))
                    events.add ("button " + textOf (*button) + ": " + key.getTextDescription());
    }

    juce::StringArray look() override
    {
        auto lines = scene::look();
        lines.add (dialog == nullptr ? "no dialog is open" : "a dialog is open");
        return lines;
    }
};
}

TEST_CASE ("the store dialog does what the script says")
{
    playScript ("store-dialog-script", [] { return std::make_unique<openStore>(); });
}

TEST_CASE ("while the service is silent the wait cursor shows, over what was painted before")
{
    struct : juce::Component
    {
        std::atomic<bool> isPainted{ false };
        void paint (juce::Graphics&) override { isPainted = true; }
    } window;

    openStore test;
    test.acts["open"]({});
    window.setBounds (0, 0, 50, 50);
    window.addToDesktop (juce::ComponentPeer::windowIsTemporary);
    window.setVisible (true);
    window.repaint();
    window.getPeer()->performAnyPendingRepaintsNow(); // a picture that may still be on its way to the screen
    window.isPainted = false;
    window.repaint();

    bool isCursorShown = false, isPainted = false;
    test.server.reply().waitUntil ([&] {
        isCursorShown = busyCursor::isShown();
        isPainted = window.isPainted;
        return true;
    });
    test.store().handleRequest ("POST auth", "me@x.org", "secret", {});

    CHECK (isCursorShown);
    CHECK (isPainted);
    CHECK_FALSE (busyCursor::isShown());
}
