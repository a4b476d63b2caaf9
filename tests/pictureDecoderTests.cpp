#include "ui/pictureDecoder.h"
#include <catch2/catch.hpp>

template <typename Format>
static juce::MemoryBlock encode (const juce::Image& image)
{
    juce::MemoryOutputStream stream;
    REQUIRE (Format().writeImageToStream (image, stream));
    return stream.getMemoryBlock();
}

static juce::Image decode (const juce::MemoryBlock& bytes)
{
    juce::MemoryInputStream stream (bytes, false);
    return decodePicture (stream);
}

/** A picture of noise, so that not nearly all of its file is headers. */
static juce::Image sample()
{
    static juce::Random random (7);
    juce::Image image (juce::Image::RGB, 16, 16, true);

    for (int i = 0; i < 256; ++i)
        image.setPixelAt (i % 16, i / 16, juce::Colour ((juce::uint32) random.nextInt()));

    return image;
}

TEST_CASE ("a picture that is cut anywhere, or damaged, is no picture")
{
    const juce::MemoryBlock files[] = { encode<juce::PNGImageFormat> (sample()),
                                        encode<juce::JPEGImageFormat> (sample()) };

    for (auto& whole : files)
    {
        REQUIRE (decode (whole).getBounds() == juce::Rectangle<int> (16, 16));
        for (size_t size = 0; size < whole.getSize(); ++size)
            CHECK (decode ({ whole.getData(), size }).isNull());
    }

    auto wrongData = files[0];
    wrongData[60] = (char) ~wrongData[60]; // inside the compressed pixels, which a check sum covers
    CHECK (decode (wrongData).isNull());
}

TEST_CASE ("the framework's decoders survive flipped and random pictures")
{
    juce::Random random (7);
    const auto decodes = [] (const juce::MemoryBlock& bytes) {
        return juce::ImageFileFormat::loadFrom (bytes.getData(), bytes.getSize()).isValid();
    };

    for (auto& good : { encode<juce::PNGImageFormat> (sample()), encode<juce::JPEGImageFormat> (sample()) })
    {
        REQUIRE (decodes (good));
        CHECK_FALSE (decodes ({ good.getData(), 100 }));

        for (size_t i = 0; i < good.getSize(); ++i)
        {
            auto flipped = good, fromHereOn = good;
            flipped[i] = (char) (flipped[i] ^ (1 << i % 8));
            decodes (flipped);
            random.fillBitsRandomly (fromHereOn.begin() + i / 4 * 4, fromHereOn.getSize() - i / 4 * 4);
            decodes (fromHereOn);
        }
    }
}
