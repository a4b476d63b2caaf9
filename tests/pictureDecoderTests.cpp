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

TEST_CASE ("a JPEG with more scans than any honest one has, and a PNG that ends in its text, are no pictures")
{
    // 8 x 8 pixels in seven scans, of which the last is repeated.
    juce::MemoryOutputStream progressive;
    REQUIRE (juce::Base64::convertFromBase64 (
        progressive,
        "/9j/4AAQSkZJRgABAQAAAQABAAD/2wBDABsSFBcUERsXFhceHBsgKEIrKCUlKFE6PTBCYFVlZF9VXVtqeJmBanGQc1tdhbWG"
        "kJ6jq62rZ4C8ybqmx5moq6T/wgALCAAIAAgBAREA/8QAFAABAAAAAAAAAAAAAAAAAAAAAP/aAAgBAQAAAAF//8QAFRABAQAA"
        "AAAAAAAAAAAAAAAAABT/2gAIAQEAAQUCnf/EABQQAQAAAAAAAAAAAAAAAAAAAAD/2gAIAQEABj8Cf//EABUQAQEAAAAAAAAA"
        "AAAAAAAAAABx/9oACAEBAAE/IYf/2gAIAQEAAAAQf//EABYQAAMAAAAAAAAAAAAAAAAAAAAR8P/aAAgBAQABPxC0f//Z"));
    const std::string file (static_cast<const char*> (progressive.getData()), progressive.getDataSize());
    const auto scan = file.rfind ("\xff\xda");
    REQUIRE (scan != std::string::npos);

    for (auto& [scans, isPicture] : { std::pair (1, true), { 200, false } })
    {
        auto repeated = file.substr (0, file.size() - 2);

        for (int i = 1; i < scans; ++i)
            repeated += file.substr (scan, file.size() - 2 - scan);

        CHECK (decode ({ (repeated + "\xff\xd9").data(), repeated.size() + 2 }).isValid() == isPicture);
    }

    // A chunk of text without its end, after the signature and the header.
    const auto png = encode<juce::PNGImageFormat> (sample());
    const auto cut =
        std::string (png.begin(), png.begin() + 33) + std::string ("\0\0\x10\0tEXt", 8) + "Comment";
    CHECK (decode ({ cut.data(), cut.size() }).isNull());
}
