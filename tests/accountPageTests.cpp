#include "net/store_auth.h"
#include "tests/support/script.h"
#include "ui/capsLock.h"
#include "ui/linkLabel.h"
#include "ui/openInBrowser.h"
#include <catch2/catch.hpp>

static juce::StringArray opened;
static bool capsLock = false;

/** Stands in for the browser, and the other one for the keyboard. */
void openInBrowser (const juce::String& address)
{
    opened.add (address);
}

bool isCapsLockOn()
{
    return capsLock;
}

namespace
{
/** The page on the screen, where it can hand the focus on. */
struct accountPage : scene
{
    juce::var answer;
    bool goesWhenAsking = false;
    std::unique_ptr<store_auth> page;

    accountPage()
    {
        opened.clear();
        capsLock = false;
        acts["open"] = [this] (auto&) { open (installation.path); };
        acts["open without a folder"] = [this] (auto&) { open ("relative"); };
        acts["the answer will be"] = [this] (auto& a) { answer = juce::JSON::fromString (a[0]); };
        acts["the page goes when it asks"] = [this] (auto&) { goesWhenAsking = true; };
        acts["the page goes while a box is open"] = [this] (auto&) {
            robot.whileOpen = [this] { page.reset(); };
        };
        acts["press"] = [this] (auto& a) { find<juce::Button> (*page, a[0]).triggerClick(); };
        acts["type"] = [this] (auto& a) { type (field (a[0]), a[1]); };
        acts["paste"] = [this] (auto& a) { paste (field (a[0]), juce::JSON::fromString (a[1])); };
        acts["return"] = [this] (auto& a) {
            field (a[0]).keyPressed (juce::KeyPress (juce::KeyPress::returnKey));
        };
        acts["focus"] = [this] (auto& a) {
            focus (field (a[0]));
            events.add ("marked: " + field (a[0]).getHighlightedText());
        };
        acts["Caps Lock"] = [this] (auto&) {
            capsLock = true;
            waitFor ("the hint", [this] { return capsLockHint().isNotEmpty(); });
        };
        acts["point at the hint"] = [this] (auto& a) { mouse (hint(), placeInHint (a[0]), 12); };
        acts["click the hint"] = [this] (auto& a) { click (hint(), placeInHint (a[0]), 12); };
        acts["right click the hint"] = [this] (auto& a) { openMenu (hint(), placeInHint (a[0])); };
        acts["right click"] = [this] (auto& a) { openMenu (field (a[0]), 20); };
        owner.answer = [this] (auto& request) { return answerTo (request); };
        open (installation.path);
    }

    void open (const juce::String& folder)
    {
        page = std::make_unique<store_auth> (owner, folder);
        page->addToDesktop (0);
        page->setVisible (true);
    }

    /** Notes what is the case meanwhile, and forgets the login to see whether it is remembered once more. */
    juce::var answerTo (const juce::String& request)
    {
        for (auto* button : findAll<juce::TextButton> (*page))
            if (button->isDown())
                events.add (request + " while " + textOf (*button) + " is down, "
                            + scene::look().joinIntoString (", "));

        installation.folder.getChildFile ("rememberme.txt").deleteFile();

        if (goesWhenAsking)
            page.reset();

        return answer;
    }

    /** A field by its name; " (new)" stands behind the names that both forms have. */
    juce::TextEditor& field (const juce::String& name) const
    {
        return find<juce::TextEditor> (*page, name.upToFirstOccurrenceOf (" (", false, false),
                                       name.endsWith (" (new)") ? 1 : 0);
    }

    juce::String nameOf (const juce::TextEditor& f) const
    {
        const auto name = textOf (f);
        return &field (name) == &f ? name : name + " (new)";
    }

    linkLabel& hint() const { return *findAll<linkLabel> (*page).front(); }

    int placeInHint (const juce::String& place) const
    {
        const auto address = hint().getAddressBounds();
        return place == "on the address" ? address.getCentreX() : address.getX() - 5;
    }

    static void paste (juce::TextEditor& field, const juce::String& text)
    {
        field.selectAll();
        field.insertTextAtCaret (text);
    }

    static void type (juce::TextEditor& field, const juce::String& text)
    {
        paste (field, {});

        for (auto c : text)
            field.keyPressed ({ (int) c, {}, c });
    }

    /** Behind another program a menu closes at once. */
    void openMenu (juce::Component& component, int x)
    {
        waitFor ("the program in front", [this] {
            page->toFront (true);
            return juce::Process::isForegroundProcess();
        });

        for (auto buttons : { 0, (int) juce::ModifierKeys::rightButtonModifier, 0 })
            mouse (component, x, 12, buttons);

        events.add (juce::ModalComponentManager::getInstance()->getNumModalComponents() == 1 ? "a menu"
                                                                                             : "no menu");
        juce::PopupMenu::dismissAllActiveMenus();
    }

    /** The fields that something bright stands above, towards the right. */
    juce::String capsLockHint() const
    {
        const auto picture = page->createComponentSnapshot (page->getLocalBounds());
        juce::StringArray told;

        for (auto* f : findAll<juce::TextEditor> (*page))
            for (int x = f->getBounds().getCentreX() + 40; x < f->getRight(); ++x)
                if (picture.getPixelAt (x, f->getY() - 10).getBrightness() > 0.5f)
                    told.addIfNotAlreadyThere (nameOf (*f));

        return told.joinIntoString (", ");
    }

    juce::StringArray look() override
    {
        if (page == nullptr)
            return { "the page is gone" };

        auto lines = scene::look();
        lines.add ("opened: " + opened.joinIntoString (", "));
        lines.add ("Caps Lock is told at: " + capsLockHint());
        lines.add (hint().getMouseCursor() == juce::MouseCursor::PointingHandCursor ? "a hand" : "no hand");

        for (auto* button : findAll<juce::Button> (*page))
            lines.add (textOf (*button) + (button->isEnabled() ? " is enabled" : " is disabled")
                       + (button->getToggleState() ? ", on" : ""));

        for (auto* f : findAll<juce::TextEditor> (*page))
            lines.add (nameOf (*f) + " [" + f->getText() + "]");

        return lines;
    }
};
}

TEST_CASE ("what is done on the account page leads to what the script says")
{
    playScript ("account-page-script", [] { return std::make_unique<accountPage>(); });
}
