#include "tests/support/componentText.h"
#include "tests/support/script.h"
#include "ui/dialogRectTable.h"
#include "ui/focusKeeper.h"
#include "ui/jpseudomodaldialog.h"
#include <catch2/catch.hpp>

namespace
{
/** A dialog that tells its owner of its hooks, too. */
struct testDialog : jpseudomodaldialog
{
    testDialog (juce::Component* holderToUse, recordingListener& ownerToTell,
                const juce::StringArray& labels = {})
        : jpseudomodaldialog (holderToUse, &ownerToTell, "Title", labels[0], "r1", labels[1], "r2", labels[2],
                              "r3", true),
          owner (ownerToTell)
    {}

    void beforeResult (const juce::String&, const juce::var&, const juce::var&, const juce::var&) override
    {
        owner.handleMessage ("before", {}, {}, {});
    }

    void afterResult (const juce::String&, const juce::var&, const juce::var&, const juce::var&) override
    {
        owner.handleMessage ("after", {}, {}, {});
    }

    void aboutToClose (int command) override { owner.handleMessage ("close", command, {}, {}); }

    juce::Component& overlay() { return *getParentComponent(); }
    juce::Component& titleBar() { return *findAll<jpseudomodaldialogtitlebar> (overlay()).front(); }
    juce::Component& bar() { return *findAll<jpseudomodaldialogbuttonbar> (overlay()).front(); }

    recordingListener& owner;
};

/** A window that dialogs open in. It notes what reaches it of keyboard and mouse. */
struct holder : juce::Component
{
    explicit holder (juce::StringArray& eventsToNote)
        : events (eventsToNote)
    {
        setBounds (100, 100, 400, 400);
        addAndMakeVisible (behind);
        behind.setTitle ("behind");
        behind.setWantsKeyboardFocus (true);
        addToDesktop (0);
        setVisible (true);
    }

    bool keyPressed (const juce::KeyPress&) override
    {
        events.add ("the holder has a key");
        return true;
    }

    void mouseWheelMove (const juce::MouseEvent&, const juce::MouseWheelDetails&) override
    {
        events.add ("the holder is scrolled");
    }

    void mouseMagnify (const juce::MouseEvent&, float) override { events.add ("the holder is zoomed"); }

    juce::StringArray& events;
    juce::Component behind;
};

/** A dialog in a window, with a control of its own. */
struct dialogInHolder : scene
{
    juce::LookAndFeel_V3 plain;
    std::unique_ptr<holder> window = std::make_unique<holder> (events);
    juce::TextButton control{ "control" };
    juce::Component::SafePointer<testDialog> made;
    juce::String lastMoment; // at which the dialog is deleted
    bool isFinishedAgain = false;

    dialogInHolder()
    {
        acts["open"] = [this] (auto& a) { open (a); };
        acts["describe"] = [this] (auto&) { events.addArray (componentText (*window)); };
        acts["size"] = [this] (auto& a) { dialog().setDialogSize (a[0].getIntValue(), a[1].getIntValue()); };
        acts["place"] = [this] (auto&) { dialog().placeDialog(); };
        acts["size the holder"] = [this] (auto& a) {
            window->setSize (a[0].getIntValue(), a[1].getIntValue());
        };
        acts["all visible"] = [] (auto& a) { openDialogList::setAllVisible (a[0] == "yes"); };
        acts["the ground becomes"] = [this] (auto& a) {
            plain.setColour (juce::AlertWindow::backgroundColourId, juce::Colour::fromString (a[0]));
            window->setLookAndFeel (&plain);
        };
        acts["colour at"] = [this] (auto& a) { noteColour (a[0].getIntValue(), a[1].getIntValue()); };

        acts["key"] = [this] (auto& a) {
            window->getPeer()->handleKeyPress (juce::KeyPress::createFromDescription (a[0]));
        };
        acts["enable"] = [this] (auto& a) { control.setEnabled (a[0] == "yes"); };
        acts["focus"] = [this] (auto& a) { find<juce::Component> (*window, a[0]).grabKeyboardFocus(); };

        acts["point at the bar"] = [this] (auto& a) {
            mouse (dialog().bar(), a[0].getIntValue(), a[1].getIntValue());
        };
        acts["click the bar"] = [this] (auto& a) { click (dialog().bar(), a[0].getIntValue(), 12); };
        acts["click the overlay"] = [this] (auto&) { click (dialog().overlay(), 3, 3); };
        acts["wheel and zoom at"] = [this] (auto& a) { turnAndZoom (a[0].getIntValue()); };
        acts["the holder becomes modal"] = [this] (auto&) { window->enterModalState (false); };

        acts["close"] = [this] (auto& a) {
            for (auto& result : a)
                dialog().closeWithResult (result);
        };
        acts["finish"] = [this] (auto& a) { dialog().finishDialog (a[0], a[1], a[2], a[3]); };
        acts["finish while it fades out"] = [this] (auto&) {
            juce::Desktop::getInstance().getAnimator().fadeOut (&dialog(), 500);
            dialog().done();
        };
        acts["delete the holder"] = [this] (auto&) { window.reset(); };
        acts["delete the overlay"] = [this] (auto&) { delete &dialog().overlay(); };
        acts["delete the dialog at"] = [this] (auto& a) { lastMoment = a[0]; };
        acts["finish it again whenever it tells"] = [this] (auto&) { isFinishedAgain = true; };
        owner.answer = [this] (auto& text) {
            if (text == lastMoment)
                delete &dialog();
            else if (isFinishedAgain && text != "close")
                dialog().done();

            return juce::var();
        };
    }

    testDialog& dialog() const
    {
        REQUIRE (made != nullptr);
        return *made;
    }

    void open (const juce::StringArray& labels)
    {
        focus (window->behind);
        made = new testDialog (window.get(), owner, labels);
        dialog().addAndMakeVisible (control);
        dialog().setDialogSize (300, 100);
    }

    /** The colour that the overlay has at a point. */
    void noteColour (int x, int y)
    {
        juce::Image image (juce::Image::ARGB, 400, 400, true);
        juce::Graphics g (image);
        dialog().overlay().paint (g);
        events.add (image.getPixelAt (x, y).toDisplayString (true));
    }

    void turnAndZoom (int place) const
    {
        const auto source = juce::MouseInputSource::InputSourceType::mouse;
        const auto position = juce::Point<int> (place, place).toFloat();
        mouse (*window, place, place);
        window->getPeer()->handleMouseWheel (source, position, 0, { 0.0f, 1.0f, false, false, false });
        window->getPeer()->handleMagnifyGesture (source, position, 0, 1.5f);
    }

    juce::StringArray look() override
    {
        if (made != nullptr)
            dialog().overlay().createComponentSnapshot ({ 1, 1 }); // which finds the areas

        juce::StringArray areas;

        for (auto& entry : dialogRectTable::getEntries())
            areas.add (entry.area.toString());

        juce::StringArray lines{ "focus: " + focusedText(),
                                 openDialogList::isAnyOpen() ? "a dialog is open" : "no dialog is open",
                                 "shadowed areas: " + areas.joinIntoString (", ") };

        if (made != nullptr)
        {
            lines.add (dialog().overlay().isVisible() ? "the dialog is visible" : "the dialog is hidden");
            lines.add ("lit: " + litButtons());
        }

        return lines;
    }

    /** The ground of a button that is lit is darker than that of the others. */
    juce::String litButtons() const
    {
        auto& bar = dialog().bar();
        const auto picture = bar.createComponentSnapshot (bar.getLocalBounds());
        juce::StringArray lit;

        for (auto* button : bar.getChildren())
            if (picture.getPixelAt (button->getX() + 3, bar.getHeight() - 4).getAlpha() > 0x40)
                lit.add (textOf (*button));

        return lit.joinIntoString (", ");
    }
};
}

TEST_CASE ("a dialog in a holder does what the script says")
{
    playScript ("dialog-script", [] { return std::make_unique<dialogInHolder>(); });
}

TEST_CASE ("a window of its own: centred, filled by the dialog, dragged by its title bar")
{
    recordingListener owner;
    const auto area = juce::Desktop::getInstance().getDisplays().getPrimaryDisplay()->userArea;
    auto& dialog = *new testDialog (nullptr, owner);
    auto &window = *dialog.getTopLevelComponent(), &title = dialog.titleBar();
    const auto start = area.getCentre() - juce::Point<int> (250, 250);
    CHECK_FALSE (window.isVisible()); // not before it has its full size
    dialog.setDialogSize (700, 500);
    CHECK (window.isVisible());
    CHECK (window.getScreenBounds() == juce::Rectangle<int> (700, 548) + start);

    const auto grip = title.localPointToGlobal (juce::Point<int> (100, 12)), way = juce::Point<int> (-31, 17);
    juce::Desktop::setMousePosition (grip);
    click (title, 100, 12);
    juce::Desktop::setMousePosition (grip + way);

    // An event from before the move counts as little as its position.
    mouse (title, 0, 0, juce::ModifierKeys::leftButtonModifier);
    CHECK (window.getPosition() == start + way);
    mouse (title, 0, 0);

    // A window manager overrules: the dialog stays in the middle, whole.
    window.setSize (1000, 648);
    CHECK (dialog.getBounds() == juce::Rectangle<int> (150, 74, 700, 500));
    CHECK (dialog.overlay()
               .createComponentSnapshot ({ 5, 5, 1, 1 })
               .getPixelAt (0, 0)
               .isOpaque()); // skin around it
    window.setSize (350, 548);
    CHECK (window.getLocalArea (&dialog.bar(), dialog.bar().getLocalBounds())
           == juce::Rectangle<int> (0, 399, 350, 12));

    dialog.setDialogSize (2 * area.getWidth(), 500); // more than the display has
    CHECK (area.contains (window.getPeer()->getBounds()));
    CHECK (dialog.getWidth() == 2 * area.getWidth());
    window.getPeer()->handleUserClosingWindow();
    CHECK (owner.calls == juce::StringArray{ "before", "Done", "after" });
}

TEST_CASE ("a window that nobody sizes appears by itself, and goes with its overlay")
{
    recordingListener owner;
    auto& dialog = *new testDialog (nullptr, owner);
    const juce::Component::SafePointer<juce::Component> window (dialog.getTopLevelComponent());
    waitFor ("the window", [&] { return window != nullptr && window->isVisible(); });
    delete &dialog.overlay();
    REQUIRE (window != nullptr);
    CHECK_FALSE (window->isVisible());
    window->getPeer()->handleUserClosingWindow();
    drainMessages();
    CHECK (window == nullptr);
    CHECK (owner.calls == juce::StringArray());
}

TEST_CASE ("a control that comes up behind a message box has the keyboard after it")
{
    recordingListener owner;
    auto& dialog = *new testDialog (nullptr, owner);
    auto& window = *dialog.getTopLevelComponent();
    juce::TextButton control, other;
    dialog.setDialogSize (200, 100);
    dialog.addChildComponent (control);
    dialog.addChildComponent (other);
    waitFor ("the window is active", [&] { return window.getPeer()->isFocused(); });
    juce::Component::unfocusAllComponents();
    {
        const focusKeeper whileABoxIsOpen;
        control.setVisible (true);
    }
    CHECK (control.hasKeyboardFocus (false));
    {
        const focusKeeper whileABoxIsOpen;
        other.setVisible (true);
        other.grabKeyboardFocus();
    }
    CHECK (control.hasKeyboardFocus (false));
    delete &dialog.overlay();
}
