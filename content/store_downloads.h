#pragma once

#include "content/DownloadItem.h"
#include "store/genericlistener.h"
#include "ui/firstFocus.h"
#include "ui/outcomeList.h"
#include "ui/pageBanner.h"
#include "ui/pageContent.h"
#include "ui/pageLabel.h"
#include "ui/singlePressButton.h"
#include "ui/statusLabel.h"
#include <memory>
#include <set>

class itemDownload;

/** The downloads page: one button that fetches the catalogue and then downloads, item by item, whatever of it is
    newer than what is installed. The store dialog holds the catalogue and the login; see its messages and
    requests.

    Everything runs on the message thread. Opening a connection blocks it; a body is received in the ticks of a
    timer, so that the window stays alive. Every message box runs a message loop in which the user can quit. */
class store_downloads : public juce::Component, public juce::MultiTimer, public juce::Button::Listener
{
public:
    /** Installs below a folder, and nothing when that is no absolute path. Does not own the dialog, which outlives the
        page. */
    store_downloads (genericlistener& storeDialog, const juce::String& folderToInstallBelow);
    ~store_downloads() override;

    void paint (juce::Graphics& g) override;
    void resized() override;
    void buttonClicked (juce::Button* button) override;
    void mouseWheelMove (const juce::MouseEvent& e, const juce::MouseWheelDetails& wheel) override;
    void timerCallback (int timerId) override;

private:
    /** What a press of the button does, from the catalogue to the summary. */
    struct DownloadRun
    {
        int total = 0; // items of the catalogue; 0 while idle
        int index = 0; // of the item that comes next
        juce::StringArray downloadedNames, failedTargets, outOfDateNames, upToDateNames;
        std::set<juce::String> tidyFolders; // that nothing is left in by programs that were killed
    };

    juce::var ask (const char* request) const;
    DownloadItem nextItem() const;

    void startRun();
    void continueRun();  // to the next item that is needed, or to the end
    void tidyUp();       // once a run in the folder of `item`
    void openDownload(); // of `item`
    void finishDownload();
    void endRun();
    void updateStatus (int percent);

    /** Lists what became of `item`, the first one after it has counted it among its like. */
    void addOutcome (juce::StringArray& names, const char* outcome, juce::uint32 colour);
    void addFailure();

    /** Counts `item` as failed and says so. False when the page is gone afterwards. */
    bool reportFailure (const juce::String& message);

    genericlistener& dialog;
    const juce::String installationFolder;
    DownloadRun run;
    DownloadItem item; // the one that is received
    std::unique_ptr<itemDownload> download;
    int percent = 0;      // of `item`
    outcomeList outcomes; // of this run, or of the last one

    juce::GroupComponent group;
    singlePressButton downloadButton;
    pageLabel description;
    statusLabel status;
    const pageContent content;
    const firstFocus focus;
    pageBanner banner;

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (store_downloads)
};
