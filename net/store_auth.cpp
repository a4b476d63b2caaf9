#include "net/store_auth.h"
#include "assets.h"
#include "net/acceptableAddress.h"
#include "net/storeAddress.h"
#include "store/showAttention.h"
#include "ui/pagePanel.h"

namespace
{
constexpr juce::juce_wchar passwordCharacter = '*';
constexpr juce::uint32 bannerFill = 0xff16181c, headingColour = 0xffffb454;

const juce::Rectangle<int> bannerBounds (0, 0, 700, 48);
constexpr float labelHeight = 15.0f, headingHeight = 17.0f, hintHeight = 13.0f;

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

/** The text of two editors that hold the same, else none. */
juce::String agreedText (const juce::TextEditor& first, const juce::TextEditor& second)
{
    return first.getText() == second.getText() ? first.getText() : juce::String();
}

template <typename Action, typename... Items>
void forEach (Action action, Items&... items)
{
    (action (items), ...);
}

bool isSuccess (const juce::var& answer)
{
    return answer.equalsWithSameType (1);
}
}

store_auth::store_auth (genericlistener& storeDialog, const juce::String& installationFolder)
    : banner (juce::ImageCache::getFromMemory (assets::banneraccount_png, assets::banneraccount_pngSize)),
      backdrop ({}, juce::Font (labelHeight)),
      loginGroup ("new group", "Authenticate"),
      loginAddressLabel ("Email address", juce::Font (labelHeight)),
      loginPasswordLabel ("Password", juce::Font (labelHeight)),
      creationGroup ("new group", "Create new account"),
      creationAddressLabel ("Email address", juce::Font (labelHeight)),
      creationPasswordLabel ("Password", juce::Font (labelHeight)),
      confirmAddressLabel ("Confirm email", juce::Font (labelHeight)),
      confirmPasswordLabel ("Confirm password", juce::Font (labelHeight)),
      loginHeading ("Have a Dorvik account?", juce::Font (headingHeight, juce::Font::bold)),
      creationHeading ("Just getting started?", juce::Font (headingHeight, juce::Font::bold)),
      loginButton ("new button"),
      loginPassword ("new text editor", passwordCharacter),
      loginAddress ("new text editor"),
      creationButton ("new button"),
      confirmPassword ("new text editor", passwordCharacter),
      creationPassword ("new text editor", passwordCharacter),
      confirmAddress ("new text editor"),
      creationAddress ("new text editor"),
      rememberToggle ("new toggle button"),
      passwordHint ("Forgot your password? Please go to " + storeAddress(), juce::Font (hintHeight)),
      dialog (storeDialog),
      remembered (installationFolder)
{
    loginButton.setButtonText ("Authenticate");
    creationButton.setButtonText ("Create account");
    rememberToggle.setButtonText ("Remember me");
    rememberToggle.setTooltip (
        "Your user name and password will be stored on the disk of this computer. It "
        "will be not be stored in clear text but may be a security concern none the less.");

    forEach ([this] (auto& child) { addAndMakeVisible (child); }, backdrop, loginGroup, loginAddressLabel,
             loginPasswordLabel, creationGroup, creationAddressLabel, creationPasswordLabel,
             confirmAddressLabel, confirmPasswordLabel, loginHeading, creationHeading, loginButton,
             loginPassword, loginAddress, creationButton, confirmPassword, creationPassword, confirmAddress,
             creationAddress, rememberToggle, passwordHint);

    forEach ([position = 0] (auto& control) mutable { control.setExplicitFocusOrder (++position); },
             loginAddress, loginPassword, loginButton, rememberToggle, creationAddress, confirmAddress,
             creationPassword, confirmPassword, creationButton);

    forEach (
        [] (auto& heading) { heading.setColour (juce::Label::textColourId, juce::Colour (headingColour)); },
        loginHeading, creationHeading);

    forEach ([this] (auto& button) { button.addListener (this); }, loginButton, creationButton,
             rememberToggle);

    setUpEditor (loginPassword, loginPasswordLabel);
    setUpEditor (loginAddress, loginAddressLabel);
    setUpEditor (confirmPassword, confirmPasswordLabel);
    setUpEditor (creationPassword, creationPasswordLabel);
    setUpEditor (confirmAddress, confirmAddressLabel);
    setUpEditor (creationAddress, creationAddressLabel);

    setSize (700, 500);
    updateButtons();
    loadRememberedLogin();
}

void store_auth::setUpEditor (juce::TextEditor& editor, const juce::Label& label)
{
    editor.setTitle (label.getText());
    editor.setFont (juce::Font (labelHeight));
    editor.setIndents (4, 0);
    editor.setJustification (juce::Justification::centredLeft);
    editor.setSelectAllWhenFocused (true);
    editor.setEscapeAndReturnKeysConsumed (false); // Escape is the dialog's
    editor.addListener (this);
}

void store_auth::paint (juce::Graphics& g)
{
    g.setColour (juce::Colour (bannerFill));
    g.fillRect (bannerBounds);
    g.setOpacity (1.0f);
    g.drawImage (banner, bannerBounds.toFloat(), juce::RectanglePlacement::stretchToFit);
    drawPagePanel (g, loginGroup);
    drawPagePanel (g, creationGroup);
}

void store_auth::resized()
{
    backdrop.setBounds (0, 0, 700, 500);
    loginGroup.setBounds (48, 109, 288, 312);
    loginAddressLabel.setBounds (72, 138, 150, 24);
    loginPasswordLabel.setBounds (72, 194, 150, 24);
    creationGroup.setBounds (360, 110, 288, 312);
    creationAddressLabel.setBounds (384, 138, 150, 24);
    creationPasswordLabel.setBounds (384, 266, 150, 24);
    confirmAddressLabel.setBounds (387, 190, 150, 24);
    confirmPasswordLabel.setBounds (386, 316, 150, 24);
    loginHeading.setBounds (48, 77, 280, 24);
    creationHeading.setBounds (360, 77, 288, 24);
    loginButton.setBounds (112, 252, 150, 24);
    loginPassword.setBounds (72, 218, 240, 24);
    loginAddress.setBounds (72, 162, 240, 24);
    creationButton.setBounds (432, 380, 150, 24);
    confirmPassword.setBounds (386, 340, 240, 24);
    creationPassword.setBounds (384, 290, 240, 24);
    confirmAddress.setBounds (387, 214, 240, 24);
    creationAddress.setBounds (384, 162, 240, 24);
    rememberToggle.setBounds (64, 380, 256, 24);
    passwordHint.setBounds (48, 424, 424, 24);
}

void store_auth::visibilityChanged()
{
    if (isShowing() && ! isCurrentlyBlockedByAnotherModalComponent())
        loginAddress.grabKeyboardFocus();
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
