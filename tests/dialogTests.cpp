#include "tests/support/mouse.h"
#include "tests/support/recordingListener.h"
#include "tests/support/waiting.h"
#include "ui/dialogRectTable.h"
#include "ui/jpseudomodaldialog.h"
#include "ui/lookAndFeelKlangora.h"
#include "ui/openDialogList.h"
#include <catch2/catch.hpp>

/** Labels of a bar; the results are "r1" to "r3". */
using labels = std::array<juce::String, 3>;

/** A dialog that writes its hooks down between what its owner is told. */
struct testDialog : jpseudomodaldialog
{
    testDialog (juce::Component* holderToUse, recordingListener& ownerToTell, const labels& l)
        : jpseudomodaldialog (holderToUse, &ownerToTell, "Title", l[0], "r1", l[1], "r2", l[2], "r3", true),
          owner (ownerToTell)
    {}

    void beforeResult (const juce::String&, const juce::var&, const juce::var&, const juce::var&) override
    {
        note ("before");
    }

    void afterResult (const juce::String&, const juce::var&, const juce::var&, const juce::var&) override
    {
        note ("after");
    }

    void aboutToClose (int command) override { note ("close " + juce::String (command)); }
    void note (const juce::String& hook) { owner.handleMessage (hook, {}, {}, {}); }

    juce::Component& overlay() { return *getParentComponent(); }
    juce::Component& title() { return *overlay().getChildComponent (0); }
    juce::Component& bar() { return *overlay().getChildComponent (1); }

    recordingListener& owner;
};

/** A window that dialogs open in. */
struct stage
{
    stage()
    {
        lookAndFeelKlangora::install();
        holder->setBounds (100, 100, 400, 400);
        holder->addAndMakeVisible (behind);
        behind.setWantsKeyboardFocus (true);
        holder->addToDesktop (0);
        holder->setVisible (true);
    }

    testDialog& open (const labels& l = {}, int width = 300)
    {
        auto* dialog = new testDialog (holder.get(), owner, l);
        dialog->setDialogSize (width, 100);
        return *dialog;
    }

    void waitForFocus()
    {
        waitFor ("the keyboard focus", [this] {
            behind.grabKeyboardFocus();
            return behind.hasKeyboardFocus (false);
        });
    }

    void type (int key, int modifiers = 0)
    {
        holder->getPeer()->handleKeyPress (juce::KeyPress (key, modifiers, 0));
    }

    struct eater : juce::Component
    {
        bool keyPressed (const juce::KeyPress&) override { return ++keys > 0; }
        void mouseWheelMove (const juce::MouseEvent&, const juce::MouseWheelDetails&) override { ++gestures; }
        void mouseMagnify (const juce::MouseEvent&, float) override { ++gestures; }
        int keys = 0, gestures = 0;
    };

    recordingListener owner;
    std::unique_ptr<eater> holder = std::make_unique<eater>();
    juce::Component behind;
};

static void checkNothingLeft()
{
    CHECK_FALSE (openDialogList::isAnyOpen());
    CHECK (dialogRectTable::getEntries().empty());
}

TEST_CASE ("each pixel of the button bar lights up and presses the right button")
{
    const labels one, two{ "A", "B", "" }, three{ "A", "B", "C" }, lastOnly{ "", "", "C" };
    const struct
    {
        const labels& l;
        int width, x, lit;
        const char* told;
    } cases[] = {
        { one, 300, 299, 0, "Done" },
        { two, 301, 149, 0, "jControl | r1" },
        { two, 301, 150, 1, "jControl | r2" },
        { three, 300, 100, 0, "jControl | r2" },
        { three, 300, 101, 1, "jControl | r2" },
        { three, 300, 200, 1, "jControl | r3" },
        { three, 300, 201, 2, "jControl | r3" },
        { lastOnly, 300, 99, 0, "jControl | r1" },
    };

    for (auto& c : cases)
    {
        stage s;
        auto& bar = s.open (c.l, c.width).bar();
        const auto count = bar.getNumChildComponents(), width = bar.getWidth();
        const auto checkLit = [&] (int lit) {
            const auto picture = bar.createComponentSnapshot (bar.getLocalBounds());

            for (int i = 0; i < count; ++i)
                CHECK ((picture.getPixelAt (i * width / count + 2, 22).getAlpha() > 0x40) == (i == lit));
        };

        INFO (count << " buttons, x " << c.x);
        CHECK (bar.getChildComponent (0)->getTitle() == (c.l[0].isEmpty() ? "DONE" : "A"));
        mouse (bar, c.x, 12, false);
        checkLit (c.lit);
        mouse (bar, c.x, -5, false);
        checkLit (-1);
        click (bar, c.x, 12);
        CHECK (s.owner.calls == juce::StringArray{ "before", c.told, "after" });
        checkNothingLeft();
    }
}

TEST_CASE ("however a dialog is closed, its owner is told once and nothing is left")
{
    const std::pair<void (*) (stage&, testDialog&), juce::String> cases[] = {
        { [] (stage&, testDialog& d) { click (d.overlay(), 3, 3); }, "before, Done, after" },
        { [] (stage& s, testDialog&) { s.type (juce::KeyPress::escapeKey); }, "before, Done, after" },
        { [] (stage&, testDialog& d) { d.closeWithResult ({}); }, "close 999, before, Done, after" },
        { [] (stage&, testDialog& d) {
             d.closeWithResult ("first");
             d.closeWithResult ("second");
         },
          "close 999, before, second, after" },
        { [] (stage&, testDialog& d) { d.finishDialog ("x", 1, 2, 3); }, "before, x | 1 | 2 | 3, after" },
        { [] (stage&, testDialog& d) {
             juce::Desktop::getInstance().getAnimator().fadeOut (&d, 500);
             d.done();
         },
          "before, Done, after" },
        { [] (stage& s, testDialog&) { s.holder.reset(); }, {} },
        { [] (stage&, testDialog& d) { delete &d.overlay(); }, {} },
    };

    for (auto& [act, calls] : cases)
    {
        stage s;
        s.waitForFocus();
        auto& dialog = s.open();
        s.owner.whenTold = [&dialog] (auto& text) {
            if (! text.startsWith ("close"))
                dialog.done(); // once more, which does nothing
        };
        dialog.overlay().createComponentSnapshot ({ 10, 10 });
        CHECK (dialogRectTable::getEntries().size() == 1);
        act (s, dialog);
        drainMessages();
        CHECK (s.owner.calls.joinIntoString (", ") == calls);
        checkNothingLeft();
    }
}

TEST_CASE ("a dialog may be deleted under the feet of whatever goes on")
{
    for (auto* moment : { "close 999", "before", "Done", "after" })
    {
        stage s;
        auto& dialog = s.open();
        s.owner.whenTold = [&] (auto& text) {
            if (text == moment)
                delete &dialog;
        };
        dialog.closeWithResult ({});
        drainMessages();
        CHECK (s.owner.calls[s.owner.calls.size() - 1] == moment);
        checkNothingLeft();
    }
}

TEST_CASE ("the keyboard stays in the dialog, reaches its buttons, and returns to where it was")
{
    stage s;
    s.waitForFocus();
    auto& dialog = s.open ({ "A", "B", "" });
    juce::TextButton control;
    dialog.addAndMakeVisible (control);
    const auto focused = [] { return juce::Component::getCurrentlyFocusedComponent(); };

    for (auto* stop : { (juce::Component*) &control, dialog.bar().getChildComponent (0),
                        dialog.bar().getChildComponent (1), (juce::Component*) &control })
    {
        s.type (juce::KeyPress::tabKey);
        CHECK (focused() == stop);
    }

    drainMessages();
    dialog.overlay().grabKeyboardFocus();
    CHECK (focused() == &control); // comes back to it, as after a message box
    s.type (juce::KeyPress::tabKey, juce::ModifierKeys::shiftModifier);
    s.type ('a');
    CHECK (s.holder->keys == 0);
    s.type (juce::KeyPress::spaceKey);
    CHECK (s.owner.calls[1] == "jControl | r2");
    CHECK (focused() == &s.behind);
    checkNothingLeft();
}

TEST_CASE ("while the focused control is disabled the bar has the keyboard; then the control has it again")
{
    stage s;
    s.waitForFocus();
    auto& dialog = s.open ({ "A", "B", "" });
    juce::TextButton control;
    dialog.addAndMakeVisible (control);
    const auto focused = [] { return juce::Component::getCurrentlyFocusedComponent(); };
    control.grabKeyboardFocus();
    drainMessages();

    for (auto interrupted : { false, true })
    {
        control.setEnabled (false);
        CHECK (focused() == dialog.bar().getChildComponent (0));
        drainMessages();

        if (interrupted) // as by a message box
            s.behind.grabKeyboardFocus();

        control.setEnabled (true);

        if (interrupted)
            dialog.bar().getChildComponent (0)->grabKeyboardFocus();

        drainMessages();
        CHECK (focused() == &control);
    }

    control.setEnabled (false);
    drainMessages();
    dialog.bar().getChildComponent (1)->grabKeyboardFocus(); // the user's own choice stays
    drainMessages();
    control.setEnabled (true);
    CHECK (focused() == dialog.bar().getChildComponent (1));
    control.setEnabled (false);
    s.type (juce::KeyPress::escapeKey);
    CHECK (s.owner.calls.contains ("Done"));
}

TEST_CASE ("in a holder nothing of the mouse passes the overlay; a modal holder does not mute the dialog")
{
    stage s;
    auto& dialog = s.open();
    auto& peer = *s.holder->getPeer();
    const auto source = juce::MouseInputSource::InputSourceType::mouse;

    for (auto point : { juce::Point<float> (3.0f, 3.0f), juce::Point<float> (200.0f, 200.0f) })
    {
        peer.handleMouseWheel (source, point, 0, { 0.0f, 1.0f, false, false, false });
        peer.handleMagnifyGesture (source, point, 0, 1.5f);
    }

    CHECK (s.holder->gestures == 0);
    s.holder->enterModalState (false);
    click (dialog.bar(), 100, 12);
    CHECK (s.owner.calls.contains ("Done"));
    s.holder->exitModalState (0);
}

TEST_CASE ("a dialog lies in the middle of its holder, on an overlay that is composed once")
{
    stage s;
    juce::LookAndFeel_V3 plain;
    s.holder->setLookAndFeel (&plain);
    plain.setColour (juce::AlertWindow::backgroundColourId, juce::Colours::red);
    auto& dialog = s.open ({}, 200); // with its bars at 100, 126, 200 x 148
    juce::Image image (juce::Image::ARGB, 600, 500, true);
    const auto argb = [&] (int x, int y) {
        image.clear (image.getBounds());
        juce::Graphics g (image);
        dialog.overlay().paint (g);
        return image.getPixelAt (x, y).toDisplayString (true);
    };

    CHECK (argb (5, 5).startsWith ("34"));
    CHECK (argb (200, 277) > argb (5, 5));  // the shadow falls down
    CHECK (argb (200, 112) == argb (5, 5)); // and not up
    CHECK (argb (200, 125) == "FFFE8787");  // white frame over red
    CHECK (argb (200, 126) == "FFFF0000");
    CHECK (dialogRectTable::getEntries()[0].area == juce::Rectangle<int> (99, 125, 202, 150));

    plain.setColour (juce::AlertWindow::backgroundColourId, juce::Colours::lime);
    CHECK (argb (200, 200) == "FFFF0000");
    dialog.setSize (200, 101);
    CHECK (argb (200, 200) == "FF00FF00");

    dialog.setDialogSize (301, -1);
    CHECK (dialog.getBounds() == juce::Rectangle<int> (50, 150, 301, 101));
    s.holder->setSize (600, 500);
    CHECK (dialog.overlay().getBounds() == juce::Rectangle<int> (600, 500));
    CHECK (dialog.getPosition() == juce::Point<int> (150, 200));
    s.holder->setLookAndFeel (nullptr);
}

TEST_CASE ("all dialogs are hidden and shown at once")
{
    stage s;
    auto &first = s.open(), &second = s.open();

    for (auto visible : { false, true })
    {
        openDialogList::setAllVisible (visible);
        CHECK (first.overlay().isVisible() == visible);
        CHECK (second.overlay().isVisible() == visible);
        CHECK (openDialogList::isAnyOpen()); // hidden ones are open
    }
}

TEST_CASE ("the default place in a holder: nine tenths of its width, 500 high, in the middle")
{
    stage s;
    auto& dialog = s.open();
    s.holder->setSize (405, 301);
    dialog.placeDialog();
    CHECK (dialog.getBounds() == juce::Rectangle<int> (202 - 182, 150 - 250, 364, 500));
}

TEST_CASE ("a window of its own: centred, filled by the dialog, dragged by its title bar")
{
    recordingListener owner;
    const auto area = juce::Desktop::getInstance().getDisplays().getPrimaryDisplay()->userArea;
    auto& dialog = *new testDialog (nullptr, owner, {});
    auto& window = *dialog.getTopLevelComponent();
    const auto start = area.getCentre() - juce::Point<int> (250, 250);
    CHECK (window.getBounds() == juce::Rectangle<int> (500, 500) + start);
    CHECK_FALSE (window.isVisible()); // not before it has its full size
    dialog.setDialogSize (700, 500);
    CHECK (window.isVisible());
    CHECK (window.getScreenBounds() == juce::Rectangle<int> (700, 548) + start);
    CHECK (dialog.getBounds() == juce::Rectangle<int> (0, 24, 700, 500));
    const auto grip = dialog.title().localPointToGlobal (juce::Point<int> (100, 12));
    juce::Desktop::setMousePosition (grip);
    mouse (dialog.title(), 100, 12, true);
    juce::Desktop::setMousePosition (grip + juce::Point<int> (-31, 17));
    mouse (dialog.title(), 0, 0, true); // an event from before the move counts as little as its position
    CHECK (window.getPosition() == start + juce::Point<int> (-31, 17));
    mouse (dialog.title(), 0, 0, false);

    // A window manager overrules: the dialog stays in the middle, whole.
    window.setSize (1000, 648);
    CHECK (dialog.getBounds() == juce::Rectangle<int> (150, 74, 700, 500));
    window.setSize (350, 548);
    CHECK (window.getLocalArea (&dialog.bar(), dialog.bar().getLocalBounds())
           == juce::Rectangle<int> (0, 399, 350, 12));

    dialog.setDialogSize (2 * area.getWidth(), 500); // more than the display has
    CHECK (area.contains (window.getPeer()->getBounds()));
    CHECK (dialog.getWidth() == 2 * area.getWidth());
    window.getPeer()->handleUserClosingWindow();
    CHECK (owner.calls[1] == "Done");
    checkNothingLeft();
}

TEST_CASE ("a window whose overlay is deleted by itself goes, too; one that nobody sizes appears by itself")
{
    recordingListener owner;
    auto& dialog = *new testDialog (nullptr, owner, {});
    const juce::Component::SafePointer<juce::Component> window (dialog.getTopLevelComponent());
    waitFor ("the window", [&] { return window != nullptr && window->isVisible(); });
    delete &dialog.overlay();
    REQUIRE (window != nullptr);
    CHECK_FALSE (window->isVisible());
    window->getPeer()->handleUserClosingWindow();
    drainMessages();
    CHECK (window == nullptr);
    CHECK (owner.calls.isEmpty());
    checkNothingLeft();
}
