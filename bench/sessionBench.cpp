#include "bench/figures.h"
#include "bench/runningProgram.h"
#include "bench/scratchFolder.h"
#include <cstdio>
#include <fcntl.h>
#include <memory>
#include <unistd.h>

static constexpr int kilobyte = 1000, megabyte = 1000 * kilobyte, mebibyte = 1024 * 1024;
static constexpr double tick = 0.05, someMore = 1.15;

namespace
{
/** What the account of a session owns. */
struct items
{
    int count, size;
};

/** What a session took; negative after a failure. */
struct session
{
    double logOn = -1, items = -1, peakMiB = -1; // seconds, but for the last
};

/** A store with a line to it. */
class distantStore
{
public:
    /** @param delayMs  there and back
        @param megabits a second, in each direction; 0 for no limit */
    distantStore (double delayMs, double megabits)
        : store ("benchStore",
                 { "--certificate", presentMeasurement().certificate, "--key", presentMeasurement().key }),
          relay ("relay", { store.readLine(), "--delay", std::to_string (delayMs / 2), "--rate",
                            std::to_string (megabits) }),
          port (relay.readLine())
    {}

    std::string origin() const { return "https://localhost:" + port; }

    /** Ends both and tells of how many there were more, connections or full TLS handshakes. */
    int connections()
    {
        relay.end();
        store.end();
        return std::max (std::atoi (relay.readLine().c_str()), std::atoi (store.readLine().c_str()));
    }

private:
    runningProgram store, relay;
    std::string port;
};

/** A store on this machine that speaks no TLS. */
class nearStore
{
public:
    std::string origin() const { return "http://127.0.0.1:" + port; }

private:
    runningProgram store{ "benchStore" };
    std::string port = store.readLine();
};
}

/** The lines of a command's output, as numbers; none when it failed. */
static std::vector<double> numbersOf (const std::string& command)
{
    std::vector<double> numbers;
    auto* output = popen (command.c_str(), "r");

    if (output == nullptr)
        return {};

    for (double number; std::fscanf (output, "%lf", &number) == 1;)
        numbers.push_back (number);

    return pclose (output) == 0 ? numbers : std::vector<double>();
}

static session runOurs (const std::string& origin, items wanted)
{
    const auto numbers = numbersOf (presentMeasurement().session + " " + origin + " "
                                    + std::to_string (wanted.count) + " " + std::to_string (wanted.size));
    return numbers.size() == 3 ? session{ numbers[0], numbers[1], numbers[2] } : session();
}

/** The same requests by curl in one process with kept connections, in its own count of time: it starts before the
    address is looked up and ends with the last byte of the body. */
static session runCurl (const std::string& origin, items wanted, bool waitsForDisk = false)
{
    const auto folder = scratchFolder().getChildFile ("curl");
    const auto configuration = scratchFolder().getChildFile ("curl.conf");
    const auto account = std::to_string (wanted.count) + "x" + std::to_string (wanted.size);
    std::string lines = "silent\nshow-error\nfail-early\n", separator;
    folder.createDirectory();

    const auto ask = [&] (const std::string& path, const std::string& target, const std::string& data) {
        lines += separator + "fail\nurl=\"" + origin + path + "\"\noutput=\"" + target
                 + "\"\nheader=\"Authorization: " + account + "\"\nwrite-out=\"%{time_total}\\n\"\n"
                 + (data.empty() ? "" : "data=\"" + data + "\"\n");
        separator = "next\n";
    };

    ask ("/api/auth.cfm", "/dev/null", "emailaddr=" + account + "&password=word");
    ask ("/api/bin.cfm", "/dev/null", "list");
    ask ("/api/bin.cfm", "/dev/null", "list"); // the program asks for it again when the download starts

    for (int i = 0; i < wanted.count; ++i)
        ask ("/items/" + std::to_string (wanted.size) + "/" + std::to_string (i),
             folder.getChildFile ("item" + juce::String (i)).getFullPathName().toStdString(), {});

    configuration.replaceWithText (lines, false, false, "\n");
    const auto times = numbersOf ("curl --config " + configuration.getFullPathName().toStdString());
    session taken;

    if (times.size() == size_t (wanted.count) + 3
        && folder.getChildFile ("item" + juce::String (wanted.count - 1)).getSize() == wanted.size)
    {
        taken.logOn = times[0] + times[1];
        taken.items = 0;

        for (size_t i = 2; i < times.size(); ++i)
            taken.items += times[i];

        const auto start = now();

        for (auto& file : folder.findChildFiles (juce::File::findFiles, false))
        {
            const auto handle = waitsForDisk ? open (file.getFullPathName().toRawUTF8(), O_RDWR) : -1;

            if (waitsForDisk && (fsync (handle) != 0 || close (handle) != 0))
                return {};
        }

        if (waitsForDisk)
            taken.items += now() - start;
    }

    folder.deleteRecursively();
    return taken;
}

static const int registered = [] {
    static constexpr items one{ 1, kilobyte }, fifty{ 50, 100 * kilobyte }, large{ 1, 50 * megabyte },
        huge{ 1, 512 * mebibyte };

    // Each line is there while its row is measured.
    const auto over = [] (double delayMs, double megabits, const auto& run) {
        return [=] {
            const distantStore store (delayMs, megabits);
            return run (store.origin());
        };
    };

    addFigure ({ "50 MB by curl through the relay of the next rows, neither long nor narrow",
                 "without the relay", 0.3, 5 },
               over (0, 0, [] (const std::string& origin) { return runCurl (origin, large).items; }), [] {
                   runningProgram store ("benchStore", { "--certificate", presentMeasurement().certificate,
                                                         "--key", presentMeasurement().key });
                   return runCurl ("https://127.0.0.1:" + store.readLine(), large).items;
               });
    addFigure (
        { "connections of a log-on, a catalogue and 50 items, over TLS", "at most", 1, 1, "" },
        [] {
            distantStore store (0, 0);
            return runOurs (store.origin(), fifty).items < 0 ? -1.0 : store.connections();
        },
        [] { return 2.0; });
    addFigure (
        { "log-on to catalogue, 40 ms there and back", "1.15 times curl", 1, 9 },
        over (40, 0, [] (const std::string& origin) { return runOurs (origin, one).logOn; }),
        over (40, 0, [] (const std::string& origin) { return someMore * runCurl (origin, one).logOn; }));
    addFigure (
        { "50 items of 100 KB, 40 ms, 20 Mbit/s", "1.15 times curl, and a tick of 50 ms an item", 1, 3 },
        over (40, 20, [] (const std::string& origin) { return runOurs (origin, fifty).items; }),
        over (40, 20, [] (const std::string& origin) {
            return someMore * runCurl (origin, fifty).items + fifty.count * tick;
        }));
    addFigure ({ "one item of 50 MB, 40 ms, 100 Mbit/s", "curl", 0.95, 5 },
               over (40, 100, [] (const std::string& origin) { return runOurs (origin, large).items; }),
               over (40, 100, [] (const std::string& origin) { return runCurl (origin, large).items; }));
    addFigure (
        { "one item of 512 MiB from a server on this machine", "curl, and then the disk", 0.6, 7 },
        [] { return runOurs (nearStore().origin(), huge).items; },
        [] { return runCurl (nearStore().origin(), huge, true).items; });
    addFigure (
        { "memory during that item", "the item's size and 40 MiB", 1, 1, "MiB" },
        [] { return runOurs (nearStore().origin(), huge).peakMiB; }, [] { return 512.0 + 40.0; });
    return 0;
}();
