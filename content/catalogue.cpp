#include "content/catalogue.h"

void readCatalogue (const juce::XmlElement& reply, const juce::String& installationFolder,
                    juce::Array<DownloadItem>& items)
{
    const DownloadItem defaults;
    const auto folder = installationFolder + "/";
    items.ensureStorageAllocated (items.size() + reply.getNumChildElements());

    for (auto* element : reply.getChildIterator())
    {
        // hasTagName ignores case, and asserts when it had to.
        if (element->getTagName() != "downloadable" || ! element->hasAttribute ("url")
            || ! element->hasAttribute ("target") || ! element->hasAttribute ("name"))
            continue;

        items.add ({ element->getStringAttribute ("url"), folder + element->getStringAttribute ("target"),
                     element->getStringAttribute ("name"),
                     element->getIntAttribute ("buildnumber", defaults.buildnumber),
                     element->getStringAttribute ("builddaterequirement", defaults.builddaterequirement) });
    }
}
