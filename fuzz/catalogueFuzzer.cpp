#include "base/validText.h"
#include "fuzz/readItems.h"
#include <cstdint>

/** A reply of the store, as it came from the network, to the items of the catalogue. */
extern "C" int LLVMFuzzerTestOneInput (const std::uint8_t* data, size_t size)
{
    const auto reply = juce::parseXML (validText (data, size));

    if (reply != nullptr)
        readItems (*reply);

    return 0;
}
