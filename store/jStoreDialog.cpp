#include "store/jStoreDialog.h"
#include "app/installationPaths.h"
#include "app/productName.h"
#include "content/catalogue.h"
#include "net/storeAddress.h"
#include "store/showAttention.h"
#include "ui/busyCursor.h"
#include "ui/childrenUnion.h"
#include "ui/focusKeeper.h"

static constexpr int dialogWidth = 700, dialogHeight = 500;
static constexpr int firstPageFadeMs = 500, nextPageFadeMs = 100, fadeOutMs = 100;

static void waitVisibly (const std::function<void()>& blockingCall)
{
    const busyCursor busy;
    blockingCall();
}

jStoreDialog::jStoreDialog (juce::Component* holderToUse)
    : jpseudomodaldialog (holderToUse, nullptr, "Dorvik Rigmart and Licenses", "QUIT", {}, {}, {}, {}, {},
                          true),
      service (storeAddress(), installationFolder, sessionToken, enduser, waitVisibly)
{
    setDialogSize (dialogWidth, dialogHeight);

    welcomePage = std::make_unique<store_intro> (*this);
    accountPage = std::make_unique<store_auth> (*this, installationFolder);
    downloadsPage = std::make_unique<store_downloads> (*this, installationFolder);
    showPage (welcomePage.get(), firstPageFadeMs);
}

jStoreDialog::~jStoreDialog()
{
    juce::Desktop::getInstance().getAnimator().cancelAllAnimations (false);
    juce::JUCEApplicationBase::quit();
}

void jStoreDialog::showPage (juce::Component* page, int fadeInMs)
{
    if (page == currentPage)
        return;

    auto& animator = juce::Desktop::getInstance().getAnimator();

    if (currentPage != nullptr)
    {
        // A fade-in that still runs would show the page again at its end.
        animator.cancelAnimation (currentPage, false);
        animator.fadeOut (currentPage, fadeOutMs);
    }

    currentPage = page;

    if (page == nullptr)
        return;

    if (page->getParentComponent() != this)
        addChildComponent (page);

    const auto content = childrenUnion (*page, true);
    page->setSize (juce::jmax (0, content.getRight() + content.getX()),
                   juce::jmax (0, content.getBottom() + content.getY()));
    page->setTopLeftPosition (getWidth() / 2 - page->getWidth() / 2, getHeight() / 2 - page->getHeight() / 2);
    page->setAlpha (0.0f);
    page->setVisible (true);
    animator.animateComponent (page, page->getBounds(), 1.0f, fadeInMs, true, 1.0, 1.0);
}

static bool askWhetherToQuit()
{
    const focusKeeper focus;
    return juce::AlertWindow::showOkCancelBox (
        juce::MessageBoxIconType::QuestionIcon, productName,
        "This will close your connections with the Dorvik Rigmart store. Do you want to quit?", "Quit",
        "Go back", nullptr, nullptr);
}

void jStoreDialog::done()
{
    const SafePointer<jStoreDialog> self (this);

    if (askWhetherToQuit() && self != nullptr)
        finishDialog ("Done", {}, {}, {});
}

void jStoreDialog::handleMessage (const juce::String& text, const juce::var&, const juce::var&,
                                  const juce::var&)
{
    if (text == "intro done")
        showPage (accountPage.get(), nextPageFadeMs);
    else if (text == "list")
        reloadCatalogue();
}

juce::var jStoreDialog::handleRequest (const juce::String& text, const juce::var& a, const juce::var& b,
                                       const juce::var&)
{
    if (text == "POST auth")
        return logOn (a, b);

    if (text == "POST create")
        return createAccount (a, b);

    if (text == "dl_auth")
        return sessionToken;

    if (text == "dl_total")
        return downloadItems.size();

    return itemField (text, a);
}

juce::var jStoreDialog::itemField (const juce::String& request, int index) const
{
    const auto exists = juce::isPositiveAndBelow (index, downloadItems.size());
    const auto item = exists ? downloadItems.getReference (index) : DownloadItem();

    if (request == "dl_name")
        return item.name;

    if (request == "dl_url")
        return item.url;

    if (request == "dl_target")
        return item.target;

    if (request == "dl_buildnumber")
        return exists ? juce::var (item.buildnumber) : juce::var (juce::String());

    if (request == "dl_bdr")
        return item.builddaterequirement;

    return {};
}

juce::var jStoreDialog::logOn (const juce::String& address, const juce::String& password)
{
    sessionToken.clear();
    enduser.clear();

    const SafePointer<jStoreDialog> self (this);
    const auto reply = service.requestLogin (address, password);

    if (self == nullptr || ! reply.has_value())
        return {};

    if (reply->token.isEmpty())
    {
        showAttention (reply->message);
        return {};
    }

    sessionToken = reply->token;
    enduser = address;
    showPage (downloadsPage.get(), nextPageFadeMs);
    return 1;
}

juce::var jStoreDialog::createAccount (const juce::String& address, const juce::String& password)
{
    sessionToken.clear();
    enduser.clear();

    const auto reply = service.requestCreation (address, password);

    if (! reply.has_value())
        return {};

    showAttention (reply->message);
    return reply->status == "success" ? juce::var (1) : juce::var();
}

void jStoreDialog::reloadCatalogue()
{
    downloadItems.clear();

    const SafePointer<jStoreDialog> self (this);
    juce::String errorText;
    const auto reply = service.requestBin (errorText, "list", "mediareview");

    if (self == nullptr)
        return;

    if (errorText.isNotEmpty())
        showAttention ("License server returns an error when trying to get list of downloadable items:\n\n"
                       + errorText);
    else if (reply == nullptr)
        showAttention (
            "License server did not return a proper list of downloadable items, and did not provide an "
            "error message.");
    else
        readCatalogue (*reply, installationFolder, downloadItems);
}
