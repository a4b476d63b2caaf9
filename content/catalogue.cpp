#include "content/catalogue.h"

void readCatalogue (const juce::XmlElement& reply, const juce::String& installationFolder,
                    juce::Array<DownloadItem>& items)
{
    const DownloadItem defaults;

    for (auto* element : reply.getChildIterator())
    {
        // hasTagName ignores case, and asserts when it had to.
        if (element->getTagName() != "downloadable" || ! element->hasAttribute ("url")
            || ! element->hasAttribute ("target") || ! element->hasAttribute ("name"))
            continue;

        DownloadItem item;
        item.url = element->getStringAttribute ("url");
        item.target = installationFolder + "/" + element->getStringAttribute ("target");
        item.name = element->getStringAttribute ("name");
        item.buildnumber = element->getIntAttribute ("buildnumber", defaults.buildnumber);
        item.builddaterequirement =
            element->getStringAttribute ("builddaterequirement", defaults.builddaterequirement);
        items.add (std::move (item));
    }
}
