#include "ui/pictureDecoder.h"
#include <cstdint>

/** A picture of the interface data. */
extern "C" int LLVMFuzzerTestOneInput (const std::uint8_t* data, size_t size)
{
    juce::MemoryInputStream stream (data, size, false);
    const auto picture = decodePicture (stream);

    if (picture.getWidth() > 8192 || picture.getHeight() > 8192)
        std::abort();

    return 0;
}
