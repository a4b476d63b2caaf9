#pragma once

#include "content/catalogue.h"
#include <cstdlib>

/** Reads the items of a reply, and ends the process when one would lie elsewhere than below the folder. */
inline void readItems (const juce::XmlElement& reply)
{
    juce::Array<DownloadItem> items;
    readCatalogue (reply, "/klangora", items);

    for (auto& item : items)
        if (! item.target.startsWith ("/klangora/"))
            std::abort();
}
