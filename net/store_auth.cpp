#include "net/store_auth.h"
#include "net/acceptableAddress.h"
#include "net/storeAddress.h"
#include "store/showAttention.h"
#include "ui/pagePanel.h"
#include "ui/palette.h"

static constexpr float headingHeight = 17.0f, hintHeight = 13.0f;

namespace
{
/** Keeps a button looking pressed while what it asked for goes on. */
class pressedState
{
public:
    explicit pressedState (juce::Button& toPress)
        : button (&toPress)
    {
        toPress.setState (juce::Button::buttonDown);
    }

    ~pressedState()
    {
        if (button != nullptr)
            button->setState (juce::Button::buttonNormal);
    }

    pressedState (const pressedState&) = delete;
    pressedState& operator= (const pressedState&) = delete;

private:
    const juce::Component::SafePointer<juce::Button> button;
};
}

/** The text of two editors that hold the same, else none. */
static juce::String agreedText (const juce::TextEditor& first, const juce::TextEditor& second)
{
    return first.getText() == second.getText() ? first.getText() : juce::String();
}

static bool isSuccess (const juce::var& answer)
{
    return answer.equalsWithSameType (1);
}

store_auth::store_auth (genericlistener& storeDialog, const juce::String& installationFolder)
    : loginHeading (juce::Font (headingHeight, juce::Font::bold)),
      creationHeading (juce::Font (headingHeight, juce::Font::bold)),
      loginPassword (pageEditor::content::password),
      loginAddress (pageEditor::content::address),
      confirmPassword (pageEditor::content::password),
      creationPassword (pageEditor::content::password),
      confirmAddress (pageEditor::content::address),
      creationAddress (pageEditor::content::address),
      passwordHint (juce::Font (hintHeight)),
      content (
          *this,
          { { backdrop, {}, { 0, 0, 700, 500 } },
            { loginGroup, "Authenticate", { 48, 109, 288, 312 } },
            { loginAddressLabel, "Email address", { 72, 138, 150, 24 } },
            { loginPasswordLabel, "Password", { 72, 194, 150, 24 } },
            { creationGroup, "Create new account", { 360, 110, 288, 312 } },
            { creationAddressLabel, "Email address", { 384, 138, 150, 24 } },
            { creationPasswordLabel, "Password", { 384, 266, 150, 24 } },
            { confirmAddressLabel, "Confirm email", { 387, 190, 150, 24 } },
            { confirmPasswordLabel, "Confirm password", { 386, 316, 150, 24 } },
            { loginHeading, "Have a Dorvik account?", { 48, 77, 280, 24 } },
            { creationHeading, "Just getting started?", { 360, 77, 288, 24 } },
            { loginButton, "Authenticate", { 112, 252, 150, 24 } },
            { loginPassword, "Password", { 72, 218, 240, 24 } },
            { loginAddress, "Email address", { 72, 162, 240, 24 } },
            { creationButton, "Create account", { 432, 380, 150, 24 } },
            { confirmPassword, "Confirm password", { 386, 340, 240, 24 } },
            { creationPassword, "Password", { 384, 290, 240, 24 } },
            { confirmAddress, "Confirm email", { 387, 214, 240, 24 } },
            { creationAddress, "Email address", { 384, 162, 240, 24 } },
            { rememberToggle, "Remember me", { 64, 380, 256, 24 } },
            { passwordHint, "Forgot your password? Please go to " + storeAddress(), { 48, 424, 424, 24 } } }),
      focus (*this, loginAddress),
      capsLock (*this, { &loginPassword, &creationPassword, &confirmPassword }),
      banner (pageBanner::motif::inputs),
      dialog (storeDialog),
      remembered (installationFolder)
{
    rememberToggle.setTooltip (
        "Your user name and password will be stored on the disk of this computer. It "
        "will be not be stored in clear text but may be a security concern none the less.");

    for (auto* heading : { &loginHeading, &creationHeading })
        heading->setColour (juce::Label::textColourId, juce::Colour (palette::accent));

    for (auto* editor : { &loginPassword, &loginAddress, &confirmPassword, &creationPassword, &confirmAddress,
                          &creationAddress })
        editor->addListener (this);

    loginButton.addListener (this);
    creationButton.addListener (this);
    rememberToggle.addListener (this);

    int place = 0;

    for (juce::Component* control : std::initializer_list<juce::Component*>{
             &loginAddress, &loginPassword, &loginButton, &rememberToggle, &creationAddress, &confirmAddress,
             &creationPassword, &confirmPassword, &creationButton })
        control->setExplicitFocusOrder (++place);

    setSize (700, 500);
    updateButtons();
    loadRememberedLogin();
}

void store_auth::paint (juce::Graphics& g)
{
    g.setColour (juce::Colour (palette::dark));
    g.fillRect (pageBanner::bounds);
    banner.draw (g, juce::RectanglePlacement::stretchToFit);
    drawPagePanel (g, loginGroup);
    drawPagePanel (g, creationGroup);
    capsLock.paint (g);
}

void store_auth::resized()
{
    content.layOut();
}

void store_auth::buttonClicked (juce::Button* button)
{
    if (button == &loginButton)
    {
        logOn();
    }
    else if (button == &creationButton)
    {
        createAccount();
    }
    else if (button == &rememberToggle)
    {
        if (rememberToggle.getToggleState())
            showAttention ("Your Username & Password will be stored on the disk of this computer. It will be "
                           "not be stored in clear text but may be a security concern none the less.");
        else
            remembered.forget();
    }
}

void store_auth::textEditorTextChanged (juce::TextEditor&)
{
    updateButtons();
}

void store_auth::textEditorReturnKeyPressed (juce::TextEditor& editor)
{
    if (&editor == &loginAddress)
        loginPassword.grabKeyboardFocus();
    else if (&editor == &loginPassword)
        logOn();
}

void store_auth::logOn()
{
    const SafePointer<store_auth> self (this);
    const pressedState pressed (loginButton);

    saveOrForgetLogin();
    const auto answer =
        dialog.handleRequest ("POST auth", loginAddress.getText(), loginPassword.getText(), {});

    if (self != nullptr && isSuccess (answer))
        saveOrForgetLogin();
}

void store_auth::createAccount()
{
    const SafePointer<store_auth> self (this);
    const pressedState pressed (creationButton);
    const auto address = creationAddress.getText(), password = creationPassword.getText();
    const auto answer = dialog.handleRequest ("POST create", address, password, {});

    if (self == nullptr)
        return;

    if (isSuccess (answer))
        dialog.handleRequest ("POST auth", address, password, {});
    else
        showAttention ("Could not create user account.");
}

void store_auth::updateButtons()
{
    loginButton.setEnabled (isAcceptableAddress (loginAddress.getText()) && ! loginPassword.isEmpty());
    creationButton.setEnabled (isAcceptableAddress (agreedText (creationAddress, confirmAddress))
                               && agreedText (creationPassword, confirmPassword).isNotEmpty());
}

void store_auth::loadRememberedLogin()
{
    const auto login = remembered.load();

    if (login.has_value())
    {
        // An editor of one line takes no line ends, which a login that was typed cannot have.
        loginAddress.setText (login->address.replaceCharacters ("\r\n", "  "));
        loginPassword.setText (login->password.replaceCharacters ("\r\n", "  "));
    }

    rememberToggle.setToggleState (login.has_value(), juce::dontSendNotification);
    updateButtons();
}

void store_auth::saveOrForgetLogin()
{
    const rememberedLogin::login login{ loginAddress.getText(), loginPassword.getText() };

    if (rememberToggle.getToggleState() && isAcceptableAddress (login.address) && login.password.isNotEmpty())
        remembered.save (login);
    else
        remembered.forget();
}
