#include "content/installedBuild.h"
#include "base/boundedReading.h"
#include "base/ordinaryFile.h"
#include "content/jSimpleArchiveDirectory.h"

/** Opens the reader for whatever is installed at a path; null for nothing. */
static std::unique_ptr<jSimpleArchive> openInstalled (const juce::String& path)
{
    if (juce::File (path).isDirectory())
    {
        auto folder = std::make_unique<jSimpleArchiveDirectory>();
        folder->open (path);
        return folder;
    }

    auto archive = std::make_unique<jSimpleArchive>();

    if (isOrdinaryFile (path + ".sa"))
    {
        archive->open (path + ".sa");
        return archive;
    }

    if (isOrdinaryFile (path))
        archive->open (path);

    return archive->isValid() ? std::move (archive) : nullptr;
}

std::optional<int> installedBuild (const juce::String& path)
{
    const auto item = openInstalled (path);

    if (item == nullptr)
        return {};

    static constexpr int longestNumber = 4096; // what follows in the entry is of no interest
    const auto entry = item->createInputStreamFor ("buildnumber.txt", longestNumber);

    if (entry == nullptr)
        return 0;

    const auto text = readAtMost (*entry, longestNumber);
    return juce::String::createStringFromData (text.getData(), (int) text.getSize()).getIntValue();
}
