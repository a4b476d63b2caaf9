#include "sandbox/sandboxContent.h"
#include "app/productName.h"
#include "sandbox/archiveWriter.h"
#include <random>

/** Bytes that look like samples of a sound: the same for the same seed, and nothing that compresses away. */
static std::string noise (unsigned int seed, size_t size)
{
    std::mt19937 generator (seed);
    std::string bytes;
    bytes.reserve (size + sizeof (std::mt19937::result_type));

    while (bytes.size() < size)
    {
        const auto word = generator();
        bytes.append (reinterpret_cast<const char*> (&word), 4);
    }

    bytes.resize (size);
    return bytes;
}

/** A packed archive as the store packs its content: the build, a description and the content itself, the first
    and the last scrambled where the version knows that. */
static juce::MemoryBlock packItem (juce::uint32 version, const std::string& name, const std::string& build,
                                   size_t contentSize)
{
    archiveWriter archive;
    archive.version = version;
    archive.keyWord = 0x51a9e0 + version;
    archive.indexBase = 700 * version;
    archive.entries = { { "buildnumber.txt", build, true },
                        { "description.xml", "<item name=\"" + name + "\" build=\"" + build + "\"/>\n" },
                        { "content.dat", noise (version, contentSize), true } };
    return archive.write();
}

static juce::String writeFile (const juce::File& file, const juce::MemoryBlock& bytes)
{
    if (file.create().failed() || ! file.replaceWithData (bytes.getData(), bytes.getSize()))
        return "Cannot write " + file.getFullPathName();

    return {};
}

std::vector<sandboxItem> makeSandboxItems()
{
    const juce::MemoryBlock neverSent;

    return {
        { "amps/amber twin.sa", "Amber Twin", "4", "", packItem (4, "Amber Twin", "4", 400'000) },
        { "effects/velvet drive.sa", "Velvet Drive", "5", "140301",
          packItem (2, "Velvet Drive", "5", 90'000) },
        { "effects/plate no 140.sa", "Plate No. 140", "7", "", neverSent },
        { "rooms/small hours", "Small Hours Rooms", "12", "", neverSent },
        { "amps/modern stack.sa", "Modern Stack & Cabinet", "2", "160101", neverSent },
        { "effects/spring tank.sa", "Spring Tank", "1", "", packItem (3, "Spring Tank", "1", 250'000), true },
        { "cabinets/concert grand.sa", "Concert Grand Cabinets", "1", "",
          packItem (1, "Concert Grand Cabinets", "1", 30'000'000) },
    };
}

std::vector<sandboxItem> makeSmallSandboxItems (int count)
{
    std::vector<sandboxItem> items;

    for (int i = 1; i <= count; ++i)
    {
        const auto number = std::to_string (i);
        const auto name = "Impulse Response " + number;
        items.push_back (
            { "responses/" + number + ".sa", name, "1", "", packItem (4, name, "1", 40'000), false });
    }

    return items;
}

juce::String installSandbox (const juce::File& folder, const juce::File& skin)
{
    juce::MemoryBlock picture;

    if (! skin.loadFileAsData (picture))
        return "Cannot read the skin picture " + skin.getFullPathName();

    archiveWriter interfaceData;
    interfaceData.keyWord = 40917;
    interfaceData.entries = { { "generic_background.jpg",
                                { static_cast<const char*> (picture.getData()), picture.getSize() },
                                true } };

    const std::pair<juce::String, juce::MemoryBlock> files[] = {
        { "gui/" + juce::String (productName).toLowerCase() + ".sa", interfaceData.write() },
        { "effects/velvet drive.sa", packItem (1, "Velvet Drive", "3", 60'000) },
        { "effects/plate no 140.sa", packItem (3, "Plate No. 140", "7", 120'000) },
        { "rooms/small hours/buildnumber.txt", { "12\n", 3 } },
        { "rooms/small hours/booth.wav", packItem (2, "Booth", "12", 40'000) },
    };

    for (const auto& [path, bytes] : files)
        if (auto problem = writeFile (folder.getChildFile (path), bytes); problem.isNotEmpty())
            return problem;

    return {};
}

juce::String exportSandboxItems (const juce::File& folder)
{
    for (const auto& item : makeSandboxItems())
        if (! item.bytes.isEmpty())
            if (auto problem = writeFile (folder.getChildFile (juce::String (item.target)), item.bytes);
                problem.isNotEmpty())
                return problem;

    return {};
}
