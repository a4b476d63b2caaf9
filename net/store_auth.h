#pragma once

#include "net/rememberedLogin.h"
#include "store/genericlistener.h"
#include "ui/capsLockHint.h"
#include "ui/firstFocus.h"
#include "ui/linkLabel.h"
#include "ui/pageBanner.h"
#include "ui/pageContent.h"
#include "ui/pageEditor.h"
#include "ui/pageLabel.h"

/** The account page: one form to log on, one to create an account. Asks its dialog with the requests "POST auth" and
    "POST create", each with an e-mail address and a password, and takes the integer 1 for success; the dialog shows
    what went wrong and moves on after a log-on.

    While its toggle is on, the login is remembered from one start of the program to the next, from the attempt
    on, successful or not. */
class store_auth : public juce::Component, public juce::Button::Listener, public juce::TextEditor::Listener
{
public:
    /** Fills in the login that the installation folder remembers. Does not own the dialog, which outlives the
        page. */
    store_auth (genericlistener& storeDialog, const juce::String& installationFolder);

    void paint (juce::Graphics&) override;
    void resized() override;
    void buttonClicked (juce::Button*) override;
    void textEditorTextChanged (juce::TextEditor&) override;
    void textEditorReturnKeyPressed (juce::TextEditor&) override;

private:
    void logOn();
    void createAccount();
    void updateButtons();
    void loadRememberedLogin();
    void saveOrForgetLogin();

    pageLabel backdrop;
    juce::GroupComponent loginGroup;
    pageLabel loginAddressLabel, loginPasswordLabel;
    juce::GroupComponent creationGroup;
    pageLabel creationAddressLabel, creationPasswordLabel, confirmAddressLabel, confirmPasswordLabel;
    pageLabel loginHeading, creationHeading;
    juce::TextButton loginButton;
    pageEditor loginPassword, loginAddress;
    juce::TextButton creationButton;
    pageEditor confirmPassword, creationPassword, confirmAddress, creationAddress;
    juce::ToggleButton rememberToggle;
    linkLabel passwordHint;
    const pageContent content;
    const firstFocus focus;
    const capsLockHint capsLock;
    pageBanner banner;
    genericlistener& dialog;
    const rememberedLogin remembered;

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (store_auth)
};
