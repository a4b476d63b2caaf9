#include "content/store_downloads.h"
#include "base/temporaryFile.h"
#include "content/itemDecision.h"
#include "content/itemDownload.h"
#include "content/targetPath.h"
#include "net/storeAddress.h"
#include "store/showAttention.h"
#include "ui/busyCursor.h"
#include "ui/drawProgress.h"
#include "ui/pagePanel.h"
#include "ui/palette.h"

static constexpr int downloadTimer = 200, downloadTimerMs = 50;

static const juce::Rectangle<int> itemProgressBounds (90, 256, 520, 8), runProgressBounds (90, 269, 520, 5);
static const juce::Rectangle<int> outcomesBounds (90, 284, 520, 114);

/** What the user is told at the end of a run, box by box. */
static juce::StringArray summaryOf (const juce::StringArray& downloadedNames,
                                    const juce::StringArray& failedTargets,
                                    const juce::StringArray& outOfDateNames,
                                    const juce::StringArray& upToDateNames)
{
    juce::StringArray boxes;

    if (! failedTargets.isEmpty())
        boxes.add ("Failed to save file(s): " + failedTargets.joinIntoString (", "));

    if (! downloadedNames.isEmpty())
        boxes.add ("Successfully downloaded: " + downloadedNames.joinIntoString (", "));

    if (boxes.isEmpty())
        boxes.add ("All contents up-to-date.");

    if (! outOfDateNames.isEmpty())
        boxes.add (
            "Some items are licensed to you but were not downloaded because the program is out of date. "
            "Please update Klangora 4 at "
            + storeAddress() + "/update to access these items:\n\n" + outOfDateNames.joinIntoString (", "));

    if (! upToDateNames.isEmpty())
        boxes.add ("Additionally, there were " + juce::String (upToDateNames.size())
                   + " items already up-to-date that were not downloaded.");

    return boxes;
}

store_downloads::store_downloads (genericlistener& storeDialog, const juce::String& folderToInstallBelow)
    : dialog (storeDialog),
      installationFolder (folderToInstallBelow),
      // The union of the children lies in the middle of the page, which is how large the store dialog makes it.
      content (*this, { { group, "Downloads", { 50, 85, 600, 330 } },
                        { downloadButton, "Download!", { 275, 108, 150, 28 } },
                        { description,
                          "New and updated contents that you own are downloaded from the Rigmart:\n"
                          "amp & effect modules, sound contents and IR libraries.\n\n"
                          "You may download them any number of times, to any number of computers.",
                          { 70, 142, 560, 80 } },
                        { status, {}, { 85, 228, 530, 24 } } }),
      focus (*this, downloadButton),
      banner (pageBanner::motif::knobs)
{
    downloadButton.setTooltip (
        "Click here to download everything that is yours! It will automatically be installed.");
    downloadButton.addListener (this);
    description.setJustificationType (juce::Justification::centred);
    setSize (700, 500);
}

store_downloads::~store_downloads() = default;

void store_downloads::paint (juce::Graphics& g)
{
    banner.draw (g);
    drawPagePanel (g, group);

    outcomes.paint (g, outcomesBounds, "What a download has done is listed here.");

    if (run.total == 0)
        return;

    const auto ofItem = 0.01 * percent;
    drawProgress (g, itemProgressBounds, ofItem);
    drawProgress (g, runProgressBounds, (run.index - 1 + ofItem) / run.total);
}

void store_downloads::resized()
{
    content.layOut();
}

void store_downloads::buttonClicked (juce::Button* button)
{
    if (button == &downloadButton)
        startRun();
}

void store_downloads::mouseWheelMove (const juce::MouseEvent& e, const juce::MouseWheelDetails& wheel)
{
    constexpr float linesPerTurn = 10.0f;

    if (outcomesBounds.contains (e.getEventRelativeTo (this).getPosition()))
    {
        outcomes.scrollBack (juce::roundToInt (linesPerTurn * wheel.deltaY), outcomesBounds);
        repaint (outcomesBounds);
    }
}

void store_downloads::timerCallback (int timerId)
{
    if (timerId != downloadTimer)
        return;

    if (download == nullptr)
    {
        stopTimer (downloadTimer);
        return;
    }

    const auto moreToCome = download->receive();
    updateStatus (download->percent());

    if (! moreToCome)
        finishDownload();
}

juce::var store_downloads::ask (const char* request) const
{
    return dialog.handleRequest (request, run.index, {}, {});
}

DownloadItem store_downloads::nextItem() const
{
    return { ask ("dl_url"), ask ("dl_target"), ask ("dl_name"), ask ("dl_buildnumber"), ask ("dl_bdr") };
}

void store_downloads::startRun()
{
    const SafePointer<store_downloads> self (this);

    run = {};
    outcomes.clear();
    downloadButton.setEnabled (false);
    dialog.handleMessage ("list", {}, {}, {});

    if (self == nullptr)
        return;

    run.total = ask ("dl_total");

    if (run.total > 0)
        continueRun();
    else
        updateStatus (0);
}

void store_downloads::continueRun()
{
    const SafePointer<store_downloads> self (this);

    // A loop: thousands of current items in a row are nothing unusual.
    for (item = nextItem(); item.url.isNotEmpty(); item = nextItem())
    {
        const auto decision = decideItem (item, installationFolder);

        if (self == nullptr)
            return;

        if (decision == itemDecision::needed || decision == itemDecision::current)
            tidyUp();

        if (decision == itemDecision::needed)
            return openDownload();

        if (decision == itemDecision::blocked)
            addOutcome (run.outOfDateNames, "too new", palette::accent);
        else if (decision == itemDecision::current)
            addOutcome (run.upToDateNames, "current", palette::quietText);
        else if (! reportFailure ("Failed to write file:\n" + item.target))
            return;

        ++run.index;
    }

    endRun();
}

void store_downloads::tidyUp()
{
    const auto path = targetPath (item.target, installationFolder);
    const auto folder = juce::File (path.value_or (juce::String())).getParentDirectory();

    if (path.has_value() && run.tidyFolders.insert (folder.getFullPathName()).second)
        temporaryFile::removeAbandoned (folder);
}

void store_downloads::openDownload()
{
    const SafePointer<store_downloads> self (this);

    // The item's number and name are on the screen while its server is waited for.
    ++run.index;
    updateStatus (0);

    webRequest request;
    request.address = item.url;
    request.token = ask ("dl_auth");
    request.progress = [this] (int done, int total) {
        updateStatus (total == 0 ? 0 : juce::jlimit (0, 100, (int) ((juce::int64) done * 100 / total)));
        return true;
    };

    auto opened = [&] {
        busyCursor busy;
        auto result = openItem (request, item.name);

        // Else many small items in a row would hardly leave a moment in which the window can be quit.
        if (std::holds_alternative<std::unique_ptr<itemDownload>> (result))
            busy.keepInput();

        return result;
    }();

    if (auto* opening = std::get_if<std::unique_ptr<itemDownload>> (&opened))
    {
        download = std::move (*opening);
        startTimer (downloadTimer, downloadTimerMs);
        return;
    }

    addFailure();
    showAttention (std::get<juce::String> (opened));

    if (self == nullptr)
        return;

    run.total = 0;
    updateStatus (0);
}

void store_downloads::finishDownload()
{
    stopTimer (downloadTimer);

    juce::String failure;
    const auto expected = download->expectedSize();
    const auto received = download->receivedSize();

    if (received != expected)
    {
        failure << "Error downloading \"" << item.name << "\"\nExpected " << expected << " bytes, but got "
                << received << " bytes.\n\nThe file will be discarded.";
    }
    else
    {
        const busyCursor busy;

        const auto path = targetPath (item.target, installationFolder);

        if (path.has_value() && download->save (*path))
            addOutcome (run.downloadedNames, "installed", palette::text);
        else
            failure = "Failed to write file:\n" + item.target;
    }

    download.reset();

    if (failure.isEmpty() || reportFailure (failure))
        continueRun();
}

void store_downloads::addOutcome (juce::StringArray& names, const char* outcome, juce::uint32 colour)
{
    names.add (item.name);
    outcomes.add (item.name, outcome, colour);
}

void store_downloads::addFailure()
{
    outcomes.add (item.name, "failed", palette::failure);
    repaint (outcomesBounds); // it shows behind the message box
}

bool store_downloads::reportFailure (const juce::String& message)
{
    const SafePointer<store_downloads> self (this);

    run.failedTargets.add (item.target);
    addFailure();
    showAttention (message);
    return self != nullptr;
}

void store_downloads::endRun()
{
    const SafePointer<store_downloads> self (this);
    const auto boxes =
        summaryOf (run.downloadedNames, run.failedTargets, run.outOfDateNames, run.upToDateNames);

    run.total = 0;
    updateStatus (0);

    for (auto& box : boxes)
    {
        showAttention (box);

        if (self == nullptr)
            return;
    }
}

void store_downloads::updateStatus (int newPercent)
{
    const auto busy = run.total > 0;

    downloadButton.setEnabled (! busy);

    if (! busy)
        download.reset();

    if (busy)
        status.setStatus ("File " + juce::String (run.index) + "/" + juce::String (run.total) + " - ",
                          item.name,
                          newPercent > 0 ? " " + juce::String (newPercent) + "%" : juce::String (" "));
    else
        status.setStatus ({}, {}, {});

    percent = newPercent;
    repaint (itemProgressBounds.getUnion (outcomesBounds));
}
