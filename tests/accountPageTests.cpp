#include "app/installationPaths.h"
#include "net/acceptableAddress.h"
#include "net/storeAddress.h"
#include "net/store_auth.h"
#include "tests/support/alertRobot.h"
#include "tests/support/mouse.h"
#include "tests/support/recordingListener.h"
#include "tests/support/temporaryInstallation.h"
#include "tests/support/waiting.h"
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
/** Places among the page's children. */
constexpr int loginButton = 11, loginPassword = 12, loginAddress = 13, creationButton = 14,
              confirmPassword = 15, creationPassword = 16, confirmAddress = 17, creationAddress = 18,
              rememberToggle = 19, passwordHint = 20;

const juce::String warning (
    "Your Username & Password will be stored on the disk of this computer. It will be not be stored in clear "
    "text but may be a security concern none the less.");

struct accountPage
{
    temporaryInstallation installation;
    alertRobot robot;
    recordingListener dialog;
    std::unique_ptr<store_auth> page;

    accountPage() { open(); }

    /** Opens the page anew; only one on the screen can hand the focus on. */
    void open()
    {
        page = std::make_unique<store_auth> (dialog, installationFolder);
        page->addToDesktop (0);
        page->setVisible (true);
    }

    /** Right-clicks as a person does, who has the program in front: behind another, a menu closes at once. */
    void openMenuOf (juce::Component& child, int x, int y) const
    {
        waitFor ("the program in front", [this] {
            page->toFront (true);
            return juce::Process::isForegroundProcess();
        });
        rightClick (child, x, y);
    }

    template <typename Type = juce::Button>
    Type& get (int index) const
    {
        return dynamic_cast<Type&> (*page->getChildComponent (index));
    }

    void click (int index) const
    {
        get (index).triggerClick();
        drainMessages();
    }

    void focus (int index) const
    {
        auto& editor = get<juce::TextEditor> (index);
        waitFor ("the focus", [&] {
            editor.grabKeyboardFocus();
            return editor.hasKeyboardFocus (true);
        });
    }

    /** Replaces the text of an editor, key by key. */
    void type (int index, const juce::String& text) const
    {
        get<juce::TextEditor> (index).selectAll();
        get<juce::TextEditor> (index).keyPressed (juce::KeyPress (juce::KeyPress::deleteKey));

        for (auto c : text)
            get<juce::TextEditor> (index).keyPressed ({ (int) c, {}, c });

        drainMessages();
    }

    void fillInCreation() const
    {
        for (auto field : { creationAddress, confirmAddress })
            type (field, "a@b.c");

        for (auto field : { creationPassword, confirmPassword })
            type (field, "secret");
    }

    bool isRemembered() const { return installation.files() == juce::StringArray{ "rememberme.txt" }; }
};
}

TEST_CASE ("an address has a name, an at sign, a host and a point in it")
{
    CHECK (
        (isAcceptableAddress ("a@b.c") && isAcceptableAddress ("a@@b.c") && isAcceptableAddress ("a@b@c.d")));

    for (auto* text : { "a.b", "@b.c", "a@.c", "a@b.c.", "a.b@c", "a@." })
        CHECK_FALSE (isAcceptableAddress (text));
}

TEST_CASE ("a form's button comes alive when its form is filled in properly")
{
    const accountPage form;
    form.type (loginPassword, "x");
    CHECK_FALSE (form.get (loginButton).isEnabled());
    form.type (loginAddress, "a@b.c");
    CHECK (form.get (loginButton).isEnabled());

    for (auto field : { creationAddress, confirmAddress, creationPassword, confirmPassword })
        for (auto* wrong : { "", "other" })
        {
            form.fillInCreation();
            CHECK (form.get (creationButton).isEnabled());
            form.type (field, wrong);
            CHECK_FALSE (form.get (creationButton).isEnabled());
        }
}

TEST_CASE ("what cannot be seen of a pasted text stays out, and what shows is what goes out")
{
    const accountPage form;
    const auto paste = [&] (int field, const char* text) {
        auto& editor = form.get<juce::TextEditor> (field);
        editor.selectAll();
        editor.insertTextAtCaret (juce::CharPointer_UTF8 (text));
        return editor.getText();
    };

    CHECK (paste (loginAddress, " \t\u00a0a@b.c\u200b \r\n") == "a@b.c");
    CHECK (paste (loginAddress, "\"a b\"@b.c ") == "\"a b\"@b.c");
    CHECK (paste (loginPassword, " two\r\nlines\u2028 \n") == " twolines ");
    form.get<juce::TextEditor> (loginPassword).keyPressed (juce::KeyPress (juce::KeyPress::returnKey));
    drainMessages();
    CHECK (form.dialog.calls == juce::StringArray{ "POST auth | \"a b\"@b.c |  twolines " });
}

TEST_CASE ("a field's menu comes at the first right click")
{
    const accountPage form;
    form.focus (loginAddress);
    form.openMenuOf (form.get<juce::TextEditor> (creationPassword), 20, 10);
    CHECK (juce::ModalComponentManager::getInstance()->getNumModalComponents() == 1);
    juce::PopupMenu::dismissAllActiveMenus();
}

TEST_CASE ("the address in the password hint is opened by a click, and can be copied")
{
    const accountPage form;
    auto& hint = form.get<linkLabel> (passwordHint);
    const auto address = hint.getAddressBounds();
    opened.clear();
    CHECK (hint.getAddress() == storeAddress());

    click (hint, address.getX() - 5, 12);
    mouse (hint, address.getCentreX(), 12, false);
    CHECK (hint.getMouseCursor() == juce::MouseCursor::PointingHandCursor);
    CHECK (opened.isEmpty());

    for (int i = 0; i < 2; ++i) // a double click is one
        click (hint, address.getCentreX(), 12);

    CHECK (opened == juce::StringArray (storeAddress()));

    form.openMenuOf (hint, address.getCentreX(), 12);
    CHECK (juce::ModalComponentManager::getInstance()->getNumModalComponents() == 1);
    CHECK (opened.size() == 1);
    juce::PopupMenu::dismissAllActiveMenus();
}

TEST_CASE ("Caps Lock is told at the password field that has the keyboard, and nowhere else")
{
    const accountPage form;
    const auto isToldAt = [&] (int field) {
        const auto bounds = form.get<juce::TextEditor> (field).getBounds();
        const auto picture = form.page->createComponentSnapshot (form.page->getLocalBounds());

        for (int x = bounds.getCentreX() + 40; x < bounds.getRight(); ++x)
            if (picture.getPixelAt (x, bounds.getY() - 10).getBrightness() > 0.5f)
                return true;

        return false;
    };

    form.focus (loginPassword);
    CHECK_FALSE (isToldAt (loginPassword));
    capsLock = true;
    waitFor ("the hint", [&] { return isToldAt (loginPassword); });
    form.focus (confirmPassword);
    waitFor ("the hint", [&] { return isToldAt (confirmPassword) && ! isToldAt (loginPassword); });
    form.focus (creationAddress);
    waitFor ("the end of the hint", [&] { return ! isToldAt (confirmPassword); });
    CHECK_FALSE (isToldAt (creationAddress));
    capsLock = false;
}

TEST_CASE ("a login is remembered before it is tried, and once more when the dialog answers the integer 1")
{
    const struct
    {
        const char *address, *password;
        bool on;
        juce::var answer;
        bool before, after; // remembered at the time of the request, and after the file was deleted meanwhile
    } rows[] = {
        { "a@b.c", "secret", true, 1, true, true },    { "a@b.c", "secret", true, {}, true, false },
        { "a@b.c", "secret", true, "1", true, false }, { "a@b.c.", "secret", true, 1, false, false },
        { "a@b.c", "", true, 1, false, false },        { "a@b.c", "secret", false, 1, false, false },
    };

    for (auto& row : rows)
    {
        accountPage form;
        const auto file = form.installation.write ("rememberme.txt", "an earlier login");
        form.dialog.answer = [&] (const juce::String&) {
            CHECK (form.isRemembered() == row.before);
            CHECK (form.get (loginButton).isDown());
            file.deleteFile();
            return row.answer;
        };

        form.get (rememberToggle).setToggleState (row.on, juce::dontSendNotification);
        form.type (loginAddress, row.address);
        form.type (loginPassword, row.password);

        for (auto field : { loginAddress, loginPassword }) // the first only moves on
            form.get<juce::TextEditor> (field).keyPressed (juce::KeyPress (juce::KeyPress::returnKey));

        drainMessages();

        const auto call = "POST auth | " + juce::String (row.address) + " | " + row.password;
        CHECK (form.dialog.calls == juce::StringArray{ call });
        CHECK (form.isRemembered() == row.after);
        CHECK_FALSE (form.get (loginButton).isDown());
    }
}

TEST_CASE ("the page opens with the remembered login; its toggle warns, and forgets")
{
    accountPage form;
    const auto file =
        form.installation.write ("rememberme.txt", "16.VBCyImenEXYEEhUHdWTFNB\n16.HBy6dSNsNccdfamSrJRFNB\n");
    form.open();
    CHECK (form.get (loginButton).isEnabled());
    CHECK (form.get<juce::TextEditor> (loginAddress).getText() == "me@example.org");
    CHECK (form.get<juce::TextEditor> (loginPassword).getText() == "secret&1");

    form.click (rememberToggle);
    CHECK_FALSE (file.existsAsFile());
    form.click (rememberToggle);
    CHECK_FALSE (file.existsAsFile()); // nothing is written yet
    CHECK (form.robot.texts() == juce::StringArray (warning));
}

TEST_CASE ("a new account is logged on at once; one that was refused is reported")
{
    for (auto isCreated : { true, false })
    {
        accountPage form;
        form.dialog.answer = [&] (const juce::String&) {
            CHECK (form.get (creationButton).isDown());
            return isCreated ? juce::var (1) : juce::var();
        };
        form.fillInCreation();
        form.click (creationButton);

        CHECK (form.dialog.calls[0] == "POST create | a@b.c | secret");
        CHECK (form.dialog.calls[1] == (isCreated ? "POST auth | a@b.c | secret" : ""));
        CHECK (form.robot.texts()[0] == (isCreated ? "" : "Could not create user account."));
    }
}

TEST_CASE ("the page may be gone when a request or a box returns")
{
    accountPage form;
    form.robot.whileOpen = [&] { form.page.reset(); };

    for (auto button : { loginButton, creationButton, rememberToggle })
    {
        form.open();
        form.get (button).setEnabled (true);
        form.dialog.answer = [&] (const juce::String&) {
            form.page.reset();
            return 1;
        };
        form.click (button);
        CHECK (form.page == nullptr);
    }
}
