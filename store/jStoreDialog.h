#pragma once

#include "content/DownloadItem.h"
#include "content/store_downloads.h"
#include "net/storeService.h"
#include "net/store_auth.h"
#include "store/genericlistener.h"
#include "store/store_intro.h"
#include "ui/jpseudomodaldialog.h"

/** The program's one window: shows one page at a time, moves from page to page on their messages, and answers their
    requests. Holds the login and the catalogue. Destroying it ends the program.

    Requests to the web service block the message thread; its failures are shown in message boxes, in which the user
    can end the program: after a message or a request, a page checks that it still exists. */
class jStoreDialog : public jpseudomodaldialog, public genericlistener
{
public:
    /** With a null holder, which is how the program makes it, the dialog opens a window of its own. */
    explicit jStoreDialog (juce::Component* holderToUse);
    ~jStoreDialog() override;

    /** Fades the present page out and another one in, sized to its children with equal margins, and centred. The
        page is not owned. Null only fades out. */
    void showPage (juce::Component* page, int fadeInMs);

    /** Asks whether to quit, and closes if so. */
    void done() override;

    /** "intro done": moves on to the account page. "list": fetches the catalogue again, for the account that is
        logged on; it is empty after a failure. */
    void handleMessage (const juce::String& text, const juce::var& a, const juce::var& b,
                        const juce::var& c) override;

    /** "POST auth" and "POST create", with an e-mail address and a password: log on, and move on to the downloads
        page; create an account. 1 on success, else void.

        "dl_total": the number of items. "dl_url", "dl_target", "dl_name", "dl_buildnumber" and "dl_bdr", with an
        index: that field of an item; empty text, "000000" for "dl_bdr", when there is no such item.

        "dl_auth": the session token. */
    juce::var handleRequest (const juce::String& text, const juce::var& a, const juce::var& b,
                             const juce::var& c) override;

private:
    juce::var logOn (const juce::String& address, const juce::String& password);
    juce::var createAccount (const juce::String& address, const juce::String& password);
    void reloadCatalogue();
    juce::var itemField (const juce::String& request, int index) const;

    juce::Component* currentPage = nullptr;
    std::unique_ptr<store_intro> welcomePage;
    std::unique_ptr<store_auth> accountPage;
    std::unique_ptr<store_downloads> downloadsPage;
    juce::String sessionToken, enduser; // of the account that is logged on, else empty
    const storeService service;
    juce::Array<DownloadItem> downloadItems;
    juce::TooltipWindow tooltips;

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (jStoreDialog)
};
