#include "bench/figures.h"
#include "bench/loopbackServer.h"
#include "bench/scratchFolder.h"
#include "content/itemDownload.h"
#include <cstdio>

static constexpr int largeSize = 512 * 1024 * 1024, smallSize = 1024, manyItems = 500;
static constexpr double tick = 0.05;

static const loopbackServer& server()
{
    static const loopbackServer running;
    return running;
}

static double now()
{
    return juce::Time::getMillisecondCounterHiRes() / 1000;
}

/** The page's run: its seconds and its peak of memory in MiB, negative when it failed. */
static std::pair<double, double> runPage (int size, int count)
{
    const auto folder = scratchFolder().getChildFile ("items");
    const auto program = juce::File::getSpecialLocation (juce::File::currentExecutableFile)
                             .getSiblingFile ("downloadRun")
                             .getFullPathName();
    const auto command = program + " " + juce::String (server().origin()) + " " + juce::String (size) + " "
                         + juce::String (count) + " " + folder.getFullPathName();
    std::pair<double, double> result{ -1, -1 };

    if (auto* output = popen (command.toRawUTF8(), "r"))
    {
        const auto read = std::fscanf (output, "%lf %lf", &result.first, &result.second);

        if (pclose (output) != 0 || read != 2 || folder.getNumberOfChildFiles (juce::File::findFiles) != count
            || folder.getChildFile ("item0").getSize() != size)
            result = { -1, -1 };
    }

    folder.deleteRecursively();
    return result;
}

/** The item with curl, which leaves it to the system when the file is on the disk, unless that is waited for. */
static double withCurl (bool waitsForDisk)
{
    const auto file = scratchFolder().getChildFile ("curl");
    auto command = "curl -s -o " + file.getFullPathName() + " " + juce::String (server().origin()) + "/"
                   + juce::String (largeSize);

    if (waitsForDisk)
        command << " && sync " << file.getFullPathName();

    const auto start = now();
    const auto status = std::system (command.toRawUTF8());
    const auto taken = now() - start;
    const auto whole = status == 0 && file.getSize() == largeSize;
    file.deleteFile();
    return whole ? taken : -1;
}

/** The whole body into memory, then the file, every write checked, to the disk. */
static double withFramework()
{
    const auto file = scratchFolder().getChildFile ("framework");
    const auto start = now();
    const auto url =
        juce::URL::createWithoutParsing (juce::String (server().origin()) + "/" + juce::String (largeSize));
    const auto body =
        url.createInputStream (juce::URL::InputStreamOptions (juce::URL::ParameterHandling::inAddress));
    juce::HeapBlock<char> bytes (largeSize);
    auto whole = body != nullptr && body->read (bytes, largeSize) == largeSize;

    {
        juce::FileOutputStream output (file, 0);
        whole = whole && output.write (bytes, largeSize);
        output.flush();
        whole = whole && output.getStatus().wasOk();
    }

    const auto taken = now() - start;
    file.deleteFile();
    return whole ? taken : -1;
}

/** What the design costs: a tick and a request for each item. */
static double withTicks()
{
    const auto file = scratchFolder().getChildFile ("small");
    const auto address = juce::String (server().origin()) + "/" + juce::String (smallSize);
    double requests = 0;

    for (int i = 0; i < manyItems; ++i)
    {
        const auto start = now();
        webRequest request;
        request.address = address;
        const auto opened = openItem (request, "Item");
        const auto* item = std::get_if<std::unique_ptr<itemDownload>> (&opened);

        if (item == nullptr)
            return -1;

        while ((*item)->receive())
        {}

        if ((*item)->receivedSize() != smallSize || ! (*item)->save (file))
            return -1;

        requests += now() - start;
    }

    return requests + manyItems * tick;
}

static const int registered = [] {
    const std::string large = "one item of 512 MiB from a server on this machine to the file";
    const auto ours = [] { return runPage (largeSize, 1).first; };

    addReading (
        { large, "curl, which does not wait for the disk", 0 }, "s", ours, [] { return withCurl (false); },
        7);
    addReading (
        { large, "curl, and then the disk", 0.6 }, "s", ours, [] { return withCurl (true); }, 7);
    addReading ({ large, "the framework's stream into memory, then a checked write", 0.9 }, "s", ours,
                withFramework, 7);
    addReading (
        { "memory during that item", "the item's size and 40 MiB", 1 }, "MiB",
        [] { return runPage (largeSize, 1).second; }, [] { return 512.0 + 40.0; }, 1);
    addReading (
        { "500 items of 1 KB", "500 ticks of 50 ms and 500 requests and files", 1 / 1.1 }, "s",
        [] { return runPage (smallSize, manyItems).first; }, withTicks, 1);
    return 0;
}();
