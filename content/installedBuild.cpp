#include "content/installedBuild.h"
#include "base/boundedReading.h"
#include "content/jSimpleArchiveDirectory.h"

/** Opens the reader for whatever is installed at a target; null for nothing. */
static std::unique_ptr<jSimpleArchive> openInstalled (const juce::String& target)
{
    if (juce::File (target).isDirectory())
    {
        auto folder = std::make_unique<jSimpleArchiveDirectory>();
        folder->open (target);
        return folder;
    }

    auto archive = std::make_unique<jSimpleArchive>();

    if (juce::File (target + ".sa").existsAsFile())
    {
        archive->open (target + ".sa");
        return archive;
    }

    if (juce::File (target).existsAsFile())
        archive->open (target);

    return archive->isValid() ? std::move (archive) : nullptr;
}

std::optional<int> installedBuild (const juce::String& target)
{
    const auto item = openInstalled (target);

    if (item == nullptr)
        return {};

    const auto entry = item->createInputStreamFor ("buildnumber.txt");

    if (entry == nullptr)
        return 0;

    const auto text = readAtMost (*entry, 4096);
    return juce::String::createStringFromData (text.getData(), (int) text.getSize()).getIntValue();
}
