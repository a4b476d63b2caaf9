#include "content/catalogue.h"

void readCatalogue (const juce::XmlElement& reply, const juce::String& installationFolder,
                    juce::Array<DownloadItem>& items)
{
    const DownloadItem defaults;
    const auto folder = installationFolder + "/";

    for (auto* element : reply.getChildIterator())
    {
        // hasTagName ignores case, and asserts when it had to.
        if (element->getTagName() != "downloadable")
            continue;

        const auto& url = element->getStringAttribute ("url");
        const auto& target = element->getStringAttribute ("target");
        const auto& name = element->getStringAttribute ("name");

        // A value that is there is as good as an attribute that is: each look-up goes through all of them.
        if ((url.isEmpty() && ! element->hasAttribute ("url"))
            || (target.isEmpty() && ! element->hasAttribute ("target"))
            || (name.isEmpty() && ! element->hasAttribute ("name")))
            continue;

        items.add ({ url, folder + target, name,
                     element->getIntAttribute ("buildnumber", defaults.buildnumber),
                     element->getStringAttribute ("builddaterequirement", defaults.builddaterequirement) });
    }
}
