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

/** A picture with something in it. */
static juce::Image sample()
{
    juce::Image image (juce::Image::RGB, 80, 60, true);
    juce::Graphics g (image);
    g.setGradientFill ({ juce::Colours::red, 0, 0, juce::Colours::blue, 80, 60, false });
    g.fillAll();
    return image;
}

TEST_CASE ("a picture that is cut anywhere, or damaged, is no picture")
{
    const juce::MemoryBlock files[] = { encode<juce::PNGImageFormat> (sample()),
                                        encode<juce::JPEGImageFormat> (sample()) };

    for (auto& whole : files)
    {
        const auto picture = decode (whole);
        REQUIRE (picture.getBounds() == sample().getBounds());
        CHECK (picture.getPixelAt (0, 0).getRed() > 200);

        for (size_t size = 0; size < whole.getSize(); ++size)
            CHECK (decode ({ whole.getData(), size }).isNull());
    }

    auto wrongData = files[0];
    wrongData[60] = (char) ~wrongData[60]; // inside the compressed pixels, which a check sum covers
    CHECK (decode (wrongData).isNull());
}

TEST_CASE ("a picture of absurd dimensions is turned down by its header")
{
    CHECK (decode (encode<juce::PNGImageFormat> ({ juce::Image::RGB, 8192, 1, true })).getWidth() == 8192);
    CHECK (decode (encode<juce::PNGImageFormat> ({ juce::Image::RGB, 8193, 1, true })).isNull());

    // The decoder itself pads a JPEG of too few data with grey, up to any size.
    auto jpeg = encode<juce::JPEGImageFormat> (sample());
    size_t frame = 0;

    while (! (jpeg[frame] == (char) 0xff && jpeg[frame + 1] == (char) 0xc0))
        ++frame;

    const auto withSides = [&] (int width, int height) {
        const int sides[] = { height >> 8, height & 255, width >> 8, width & 255 };

        for (size_t i = 0; i < 4; ++i)
            jpeg[frame + 5 + i] = (char) sides[i];

        return decode (jpeg);
    };

    CHECK (withSides (200, 300).getBounds() == juce::Rectangle<int> (200, 300));
    CHECK (withSides (4096, 4097).isNull());
    CHECK (withSides (80, 0).isNull());
}
