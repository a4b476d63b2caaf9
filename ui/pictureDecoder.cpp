#include "ui/pictureDecoder.h"
#include "base/boundedReading.h"

constexpr int maximumSide = 8192;

/** What decoding takes for each pixel: the decoder's rows, the picture, and what it may be converted to. */
constexpr size_t bytesPerPixel = size_t{ 3 } * 4;

/** What a file announces; 0 x 0 when it is none of ours. */
struct pictureSize
{
    int width = 0, height = 0;
};

/** A PNG file is a signature of 8 bytes and chunks. The first chunk is the header: its length and type, then width
    and height. */
static pictureSize sizeOfPng (juce::InputStream& file)
{
    constexpr juce::int64 signature = (juce::int64) 0x89504e470d0a1a0a;
    constexpr juce::int64 headerChunk = 0x0000000d49484452; // 13 bytes, "IHDR"

    if (file.readInt64BigEndian() != signature || file.readInt64BigEndian() != headerChunk)
        return {};

    const auto width = file.readIntBigEndian();
    return { width, file.readIntBigEndian() };
}

/** A JPEG file begins with a row of segments: 0xff, perhaps several times, the segment's type, then two bytes of
    length that count themselves. The frame segment holds a byte of precision, then height and width in two bytes
    each. The start marker in front has no length. */
static pictureSize sizeOfJpeg (juce::InputStream& file)
{
    if ((juce::uint16) file.readShortBigEndian() != 0xffd8)
        return {};

    while ((juce::uint8) file.readByte() == 0xff)
    {
        auto type = 0xff;

        while (type == 0xff)
            type = (juce::uint8) file.readByte();

        const auto end = file.getPosition() + (juce::uint16) file.readShortBigEndian();
        const auto isTable = type == 0xc4 || type == 0xc8 || type == 0xcc; // amid the types of frames

        if (type >= 0xc0 && type <= 0xcf && ! isTable)
        {
            file.readByte();
            const int height = (juce::uint16) file.readShortBigEndian();
            return { (juce::uint16) file.readShortBigEndian(), height };
        }

        file.setPosition (end);
    }

    return {};
}

/** The decoders take for granted that there is memory for a picture. */
static bool isMemoryFor (pictureSize size)
{
    return juce::HeapBlock<char> (bytesPerPixel * (size_t) size.width * (size_t) size.height) != nullptr;
}

juce::Image decodePicture (juce::InputStream& stream)
{
    const auto bytes = readAtMost (stream, (size_t) largestPictureFile + 1);

    if (bytes.isEmpty() || bytes.getSize() > largestPictureFile)
        return {};

    juce::MemoryInputStream file (bytes, false);
    const auto size = bytes[0] == (char) 0xff ? sizeOfJpeg (file) : sizeOfPng (file);

    if (size.width < 1 || size.height < 1 || size.width > maximumSide || size.height > maximumSide
        || ! isMemoryFor (size))
        return {};

    return juce::ImageFileFormat::loadFrom (bytes.getData(), bytes.getSize());
}
