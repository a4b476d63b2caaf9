#include "base/validText.h"
#include "content/catalogue.h"
#include <cstdint>

/** A reply of the store, as it came from the network, to the items of the catalogue. */
extern "C" int LLVMFuzzerTestOneInput (const std::uint8_t* data, size_t size)
{
    const auto reply = juce::parseXML (validText (data, size));

    if (reply == nullptr)
        return 0;

    juce::Array<DownloadItem> items;
    readCatalogue (*reply, "/klangora", items);

    for (auto& item : items)
        if (! item.target.startsWith ("/klangora/"))
            std::abort();

    return 0;
}
