#include "net/acceptableAddress.h"
#include "net/store_auth.h"
#include "tests/support/alertRobot.h"
#include "tests/support/recordingListener.h"
#include "tests/support/temporaryInstallation.h"
#include "tests/support/waiting.h"
#include <catch2/catch.hpp>

namespace
{
/** Places among the page's children. */
enum child
{
    loginButton = 11,
    loginPassword,
    loginAddress,
    creationButton,
    confirmPassword,
    creationPassword,
    confirmAddress,
    creationAddress,
    rememberToggle
};

const juce::String warning (
    "Your Username & Password will be stored on the disk of this computer. It will be not be stored in clear "
    "text but may be a security concern none the less.");

struct accountPage
{
    temporaryInstallation installation;
    alertRobot robot;
    recordingListener dialog;
    std::unique_ptr<store_auth> page = std::make_unique<store_auth> (dialog);

    accountPage() // only a page on the screen can hand the focus on
    {
        page->addToDesktop (0);
        page->setVisible (true);
    }

    template <typename Type>
    Type& get (child index)
    {
        return dynamic_cast<Type&> (*page->getChildComponent (index));
    }

    /** Replaces the text of an editor, key by key. */
    void type (child index, const juce::String& text)
    {
        auto& editor = get<juce::TextEditor> (index);
        editor.selectAll();
        editor.keyPressed (juce::KeyPress (juce::KeyPress::deleteKey));

        for (auto c : text)
            editor.keyPressed ({ (int) c, {}, c });

        drainMessages();
    }

    void press (child index, int keyCode)
    {
        get<juce::TextEditor> (index).keyPressed (juce::KeyPress (keyCode));
        drainMessages();
    }

    void click (child index)
    {
        get<juce::Button> (index).triggerClick();
        drainMessages();
    }

    bool isRemembered() const { return installation.files() == juce::StringArray{ "rememberme.txt" }; }
};
}

TEST_CASE ("an address has a name, an at sign, a host and a point in it")
{
    for (auto* text : { "a@b.c", "first.last@host.org", "a@@b.c", "a@b@c.d" })
        CHECK (isAcceptableAddress (text));

    for (auto* text : { "", "a", "a.b", "@b.c", "a@.c", "a@b.c.", "a.b@c", "a@", "a@." })
        CHECK_FALSE (isAcceptableAddress (text));
}

TEST_CASE ("a form's button comes alive when its form is filled in properly")
{
    accountPage form;
    form.type (loginPassword, "secret");
    CHECK_FALSE (form.get<juce::Button> (loginButton).isEnabled());
    form.type (loginAddress, "a@b.c");
    CHECK (form.get<juce::Button> (loginButton).isEnabled());
    form.type (loginAddress, "a@b.");
    CHECK_FALSE (form.get<juce::Button> (loginButton).isEnabled());

    struct row
    {
        const char *address, *confirmedAddress, *password, *confirmedPassword;
        bool enabled;
    };

    const row table[] = {
        { "a@b.c", "a@b.c", "Secret", "Secret", true },  { "a@b.c", "a@b.d", "Secret", "Secret", false },
        { "a@b.c", "a@b.c", "Secret", "secret", false }, { "a@b.c", "a@b.c", "", "", false },
        { "a@b", "a@b", "Secret", "Secret", false },     { "", "", "Secret", "Secret", false },
    };

    for (auto& row : table)
    {
        form.type (creationAddress, row.address);
        form.type (confirmAddress, row.confirmedAddress);
        form.type (creationPassword, row.password);
        form.type (confirmPassword, row.confirmedPassword);
        CHECK (form.get<juce::Button> (creationButton).isEnabled() == row.enabled);
    }
}

TEST_CASE ("a login is remembered before it is tried, and once more when the dialog answers the integer 1")
{
    struct row
    {
        const char *address, *password;
        bool on, byKey;
        juce::var answer;
        bool before, after; // remembered at the time of the request, and after the file was deleted meanwhile
    };

    const row table[] = {
        { "a@b.c", "secret", true, false, 1, true, true },
        { "a@b.c", "secret", true, true, 1, true, true },
        { "a@b.c", "secret", true, true, {}, true, false },
        { "a@b.c", "secret", true, false, true, true, false },
        { "a@b.c", "secret", true, false, "1", true, false },
        { "a@b.c.", "secret", true, true, 1, false, false },
        { "a@b.c", "", true, true, 1, false, false },
        { "a@b.c", "secret", false, false, 1, false, false },
    };

    for (auto& row : table)
    {
        accountPage form;
        const auto file = form.installation.write ("rememberme.txt", "an earlier login");
        form.dialog.answer = [&] (const juce::String&) {
            CHECK (form.isRemembered() == row.before);
            CHECK (form.get<juce::Button> (loginButton).isDown());
            file.deleteFile();
            return row.answer;
        };

        form.get<juce::Button> (rememberToggle).setToggleState (row.on, juce::dontSendNotification);
        form.type (loginAddress, row.address);
        form.press (loginAddress, juce::KeyPress::returnKey); // moves on, no more
        form.type (loginPassword, row.password);

        if (row.byKey)
            form.press (loginPassword, juce::KeyPress::returnKey);
        else
            form.click (loginButton);

        const auto call = "POST auth | " + juce::String (row.address) + " | " + row.password;
        CHECK (form.dialog.calls == juce::StringArray{ call });
        CHECK (form.isRemembered() == row.after);
        CHECK_FALSE (form.get<juce::Button> (loginButton).isDown());
        CHECK (form.robot.seen().empty());
    }
}

TEST_CASE ("the toggle warns when it is switched on, and forgets when it is switched off")
{
    accountPage form;
    form.type (loginAddress, "a@b.c");
    form.type (loginPassword, "secret");

    for (size_t round = 1; round <= 2; ++round)
    {
        form.click (rememberToggle);
        CHECK (form.robot.seen().size() == round);
        CHECK (form.robot.seen().back().text == warning);
        CHECK_FALSE (form.isRemembered());
        form.click (loginButton);
        CHECK (form.isRemembered());
        form.click (rememberToggle);
        CHECK_FALSE (form.isRemembered());
    }
}

TEST_CASE ("the page opens with the remembered login, or empty")
{
    accountPage form;
    const auto reopen = [&] (const juce::String& content) {
        form.installation.write ("rememberme.txt", content);
        form.page = std::make_unique<store_auth> (form.dialog);
        const auto isOn = form.get<juce::Button> (rememberToggle).getToggleState();
        CHECK (form.get<juce::Button> (loginButton).isEnabled() == isOn);
        CHECK (isOn == form.get<juce::TextEditor> (loginPassword).getText().isNotEmpty());
        return isOn ? form.get<juce::TextEditor> (loginAddress).getText() : juce::String ("off");
    };

    CHECK (reopen ("16.VBCyImenEXYEEhUHdWTFNB\n16.HBy6dSNsNccdfamSrJRFNB\n") == "me@example.org");
    CHECK (reopen ("16.VBCyImenEXYEEhUHdWTFNB\n") == "off");
    CHECK (form.robot.seen().empty());
}

TEST_CASE ("a new account is logged on at once; one that was refused is reported")
{
    struct row
    {
        juce::var answer;
        juce::StringArray calls, boxes;
    };

    const juce::String create ("POST create | a@b.c | secret"), logOn ("POST auth | a@b.c | secret");
    const row table[] = { { 1, { create, logOn }, {} },
                          { {}, { create }, { "Could not create user account." } } };

    for (auto& row : table)
    {
        accountPage form;
        form.dialog.answer = [&] (const juce::String& text) {
            CHECK (form.get<juce::Button> (creationButton).isDown());
            return text == "POST create" ? row.answer : juce::var (1);
        };

        for (auto field : { creationAddress, confirmAddress })
            form.type (field, "a@b.c");

        for (auto field : { creationPassword, confirmPassword })
            form.type (field, "secret");

        form.click (creationButton);
        CHECK (form.dialog.calls == row.calls);
        CHECK (form.robot.texts() == row.boxes);
        CHECK_FALSE (form.isRemembered());
    }
}

TEST_CASE ("the page may be gone when a request or a box returns")
{
    accountPage form;
    const auto vanish = [&] (auto&) { form.page.reset(); };

    for (auto button : { loginButton, creationButton, rememberToggle })
    {
        for (auto answer : { juce::var (1), juce::var() })
        {
            form.page = std::make_unique<store_auth> (form.dialog);
            form.get<juce::Button> (button).setEnabled (true);
            form.robot.whileOpen = vanish;
            form.dialog.answer = [&] (const juce::String& text) {
                vanish (text);
                return answer;
            };
            form.click (button);
            CHECK (form.page == nullptr);
        }
    }

    CHECK (form.robot.texts() == juce::StringArray (warning, warning));
}
