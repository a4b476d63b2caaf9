#include <catch2/catch.hpp>
#include <juce_graphics/juce_graphics.h>

/** A picture of noise, so that not nearly all of the file is headers. */
static juce::MemoryBlock encodeNoise (juce::ImageFileFormat& format, juce::Random& random)
{
    juce::Image image (juce::Image::RGB, 16, 16, true);

    for (int i = 0; i < 256; ++i)
        image.setPixelAt (i % 16, i / 16, juce::Colour ((juce::uint32) random.nextInt()));

    juce::MemoryOutputStream stream;
    REQUIRE (format.writeImageToStream (image, stream));
    return stream.getMemoryBlock();
}

static bool decodes (const juce::MemoryBlock& bytes, size_t size)
{
    return juce::ImageFileFormat::loadFrom (bytes.getData(), size).isValid();
}

TEST_CASE ("the framework's decoders survive cut, flipped and random pictures")
{
    juce::Random random (7);
    juce::PNGImageFormat png;
    juce::JPEGImageFormat jpeg;
    const auto goodPng = encodeNoise (png, random), goodJpeg = encodeNoise (jpeg, random);

    for (auto& good : { goodPng, goodJpeg })
    {
        REQUIRE (decodes (good, good.getSize()));

        for (size_t size = 0; size < good.getSize(); ++size)
            decodes (good, size);

        for (size_t i = 0; i < good.getSize(); ++i)
        {
            auto damaged = good;
            damaged[i] = (char) (damaged[i] ^ (1 << i % 8));
            decodes (damaged, damaged.getSize());
        }

        // From ever later positions on: random headers, then random data behind good headers.
        for (size_t start = 4; start < good.getSize(); start += 4)
        {
            auto damaged = good;
            random.fillBitsRandomly (damaged.begin() + start, damaged.getSize() - start);
            decodes (damaged, damaged.getSize());
        }
    }

    CHECK_FALSE (decodes (goodPng, goodPng.getSize() / 2));
    CHECK_FALSE (decodes (goodJpeg, 100));
}
