#include "ui/pictureDecoder.h"

constexpr int maximumFileSize = 32 * 1024 * 1024;
constexpr int maximumSide = 8192;
constexpr int maximumPixels = 16 * 1024 * 1024;

/** What a complete file announces; 0 x 0 for any other. */
struct pictureSize
{
    int width = 0, height = 0;
};

/** A PNG file is a signature of 8 bytes and chunks: a length, a four-letter type, that many bytes, a check sum.
    The first chunk is the header, with width and height in front; an empty one ends the file. */
static pictureSize sizeOfPng (juce::InputStream& file)
{
    constexpr juce::uint32 headerType = 0x49484452, endType = 0x49454e44; // "IHDR", "IEND"
    constexpr int checkSumSize = 4;
    pictureSize size;

    if ((juce::uint64) file.readInt64BigEndian() != 0x89504e470d0a1a0a)
        return {};

    for (auto isFirst = true; file.getNumBytesRemaining() >= 8; isFirst = false)
    {
        const auto length = (juce::uint32) file.readIntBigEndian();
        const auto type = (juce::uint32) file.readIntBigEndian();
        const auto end = file.getPosition() + length + checkSumSize;

        if (isFirst != (type == headerType) || end > file.getTotalLength())
            return {};

        if (type == endType)
            return size;

        if (isFirst)
        {
            size.width = file.readIntBigEndian();
            size.height = file.readIntBigEndian();
        }

        file.setPosition (end);
    }

    return {};
}

/** Steps past the next marker of a JPEG file and returns its second byte; 0 when there is none. A 0xff of the
    picture's own data is followed by a zero byte or by a restart marker; a run of 0xff is padding. */
static int nextMarker (juce::InputStream& file)
{
    while (! file.isExhausted())
    {
        auto marker = (juce::uint8) file.readByte();

        if (marker != 0xff)
            continue;

        while (marker == 0xff)
            marker = (juce::uint8) file.readByte();

        if (marker != 0 && ! (marker >= 0xd0 && marker <= 0xd7))
            return marker;
    }

    return 0;
}

/** A JPEG file is a row of segments between a start and an end marker: a marker, then two bytes of length that
    count themselves. The frame segment holds a byte of precision, then height and width in two bytes each. */
static pictureSize sizeOfJpeg (juce::InputStream& file)
{
    constexpr int startMarker = 0xd8, endMarker = 0xd9;
    constexpr int tables[] = { 0xc4, 0xc8, 0xcc }; // among the frame markers 0xc0 to 0xcf, but no frames
    pictureSize size;

    if (nextMarker (file) != startMarker || file.getPosition() != 2)
        return {};

    while (const auto marker = nextMarker (file))
    {
        if (marker == endMarker)
            return size;

        const auto start = file.getPosition();
        const auto end = start + (juce::uint16) file.readShortBigEndian();

        if (end < start + 2 || end > file.getTotalLength())
            return {};

        if ((marker & 0xf0) == 0xc0
            && std::find (std::begin (tables), std::end (tables), marker) == std::end (tables))
        {
            file.readByte();
            size.height = (juce::uint16) file.readShortBigEndian();
            size.width = (juce::uint16) file.readShortBigEndian();
        }

        file.setPosition (end);
    }

    return {};
}

juce::Image decodePicture (juce::InputStream& stream)
{
    juce::MemoryBlock bytes;
    stream.readIntoMemoryBlock (bytes, maximumFileSize + 1);

    if (bytes.isEmpty() || bytes.getSize() > maximumFileSize)
        return {};

    juce::MemoryInputStream file (bytes, false);
    const auto size = bytes[0] == (char) 0xff ? sizeOfJpeg (file) : sizeOfPng (file);

    if (size.width < 1 || size.height < 1 || size.width > maximumSide || size.height > maximumSide
        || size.width * size.height > maximumPixels)
        return {};

    return juce::ImageFileFormat::loadFrom (bytes.getData(), bytes.getSize());
}
