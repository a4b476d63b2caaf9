// The store's dialog at work, in a process of its own: logs on, fetches the catalogue, and downloads all of it.
//
// Usage: sessionRun ORIGIN COUNT SIZE
// Logs on as "COUNTxSIZE", which is what the store at ORIGIN makes a catalogue of. Prints the seconds from the log-on
// to the catalogue, those from the press of the button until all items are on the disk, and on Linux the peak of
// resident memory in MiB.

#include "app/installationPaths.h"
#include "net/storeAddress.h"
#include "store/jStoreDialog.h"
#include "store/showAttention.h"
#include "ui/lookAndFeelKlangora.h"
#include <cstdio>
#include <cstdlib>

#if ! JUCE_WINDOWS
    #include <sys/resource.h>
#endif

static juce::String origin;
static double whenDone = 0;

/** Stands in for the address that is compiled in. */
juce::String storeAddress()
{
    return origin;
}

/** Stands in for the message box. A session without failures has one, at its end. */
void showAttention (const juce::String& message)
{
    if (! message.startsWith ("Successfully downloaded: "))
    {
        std::fprintf (stderr, "%s\n", message.toRawUTF8());
        std::_Exit (EXIT_FAILURE);
    }

    whenDone = juce::Time::getMillisecondCounterHiRes();
    juce::MessageManager::getInstance()->stopDispatchLoop();
}

static double peakMiB()
{
#if JUCE_WINDOWS
    return 0;
#else
    rusage usage{};
    getrusage (RUSAGE_SELF, &usage);
    return double (usage.ru_maxrss) / 1024;
#endif
}

template <typename Type>
static Type& childOf (juce::Component& parent)
{
    for (auto* child : parent.getChildren())
        if (auto* wanted = dynamic_cast<Type*> (child))
            return *wanted;

    std::abort();
}

static bool areThere (const juce::File& folder, int count, juce::int64 size)
{
    for (int i = 0; i < count; ++i)
        if (folder.getChildFile ("item" + juce::String (i)).getSize() != size)
            return false;

    return count > 0;
}

int main (int argc, char* argv[])
{
    if (argc != 4)
        return EXIT_FAILURE;

    juce::JUCEApplicationBase::createInstance = []() -> juce::JUCEApplicationBase* { return nullptr; };
    const juce::ScopedJuceInitialiser_GUI framework;
    const auto folder = juce::File::createTempFile ("rigmart-session");
    folder.createDirectory();
    installationFolder = folder.getFullPathName();
    origin = argv[1];
    lookAndFeelKlangora::install();

    auto* const dialog = new jStoreDialog (nullptr); // owns itself
    auto& messages = *juce::MessageManager::getInstance();
    messages.runDispatchLoopUntil (300); // until the window is there and idle

    const auto start = juce::Time::getMillisecondCounterHiRes();
    const auto loggedOn = dialog->handleRequest (
        "POST auth", juce::String (argv[2]) + "x" + juce::String (argv[3]), "word", {});
    dialog->handleMessage ("list", {}, {}, {});
    const auto catalogue = juce::Time::getMillisecondCounterHiRes();

    messages.runDispatchLoopUntil (300); // until the downloads page is there
    const auto press = juce::Time::getMillisecondCounterHiRes();
    childOf<juce::TextButton> (childOf<store_downloads> (*dialog)).triggerClick();
    messages.runDispatchLoop();

    const auto whole =
        loggedOn == juce::var (1) && areThere (folder, std::atoi (argv[2]), std::atoll (argv[3]));
    folder.deleteRecursively();
    std::printf ("%f %f %f\n", (catalogue - start) / 1000, (whenDone - press) / 1000, peakMiB());
    std::fflush (stdout);
    std::_Exit (whole ? EXIT_SUCCESS : EXIT_FAILURE);
}
