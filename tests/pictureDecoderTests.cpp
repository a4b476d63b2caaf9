#include "tests/support/dataTable.h"
#include "ui/pictureDecoder.h"
#include <catch2/catch.hpp>

/** A picture of noise, so that not nearly all of its file is headers. */
template <typename Format>
static std::string encodedSample()
{
    juce::Random random (7);
    juce::Image image (juce::Image::RGB, 16, 16, true);

    for (int i = 0; i < 256; ++i)
        image.setPixelAt (i % 16, i / 16, juce::Colour ((juce::uint32) random.nextInt()));

    juce::MemoryOutputStream stream;
    REQUIRE (Format().writeImageToStream (image, stream));
    return { static_cast<const char*> (stream.getData()), stream.getDataSize() };
}

static bool isPicture (const std::string& file)
{
    juce::MemoryInputStream stream (file.data(), file.size(), false);
    return decodePicture (stream).isValid();
}

TEST_CASE ("a picture is one when it is whole, none when it is cut anywhere, and harmless when it is damaged")
{
    for (auto& file : { encodedSample<juce::PNGImageFormat>(), encodedSample<juce::JPEGImageFormat>() })
    {
        for (size_t i = 0; i < file.size(); ++i)
        {
            CAPTURE (i, file.size());
            CHECK_FALSE (isPicture (file.substr (0, i)));

            auto flipped = file;
            flipped[i] = (char) (flipped[i] ^ (1 << i % 8));
            isPicture (flipped);
        }

        CHECK (isPicture (file));
    }
}

TEST_CASE ("a PNG with damaged pixels is no picture")
{
    auto file = encodedSample<juce::PNGImageFormat>();
    file[60] = (char) ~file[60]; // inside the compressed pixels, which a check sum covers
    CHECK_FALSE (isPicture (file));
}

TEST_CASE ("a JPEG with more scans than any honest one has is no picture")
{
    juce::MemoryBlock progressive; // 8 x 8 pixels in seven scans, of which the last is repeated
    REQUIRE (testFile ("data/progressive.jpg").loadFileAsData (progressive));
    const std::string file (progressive.begin(), progressive.end());
    const auto lastScan = file.substr (file.rfind ("\xff\xda"));
    auto repeated = file;

    for (int i = 0; i < 200; ++i)
        repeated.insert (file.size() - lastScan.size(), lastScan, 0, lastScan.size() - 2);

    CHECK (isPicture (file));
    CHECK_FALSE (isPicture (repeated));
}

TEST_CASE ("a PNG that ends inside a chunk of text is no picture")
{
    const auto png = encodedSample<juce::PNGImageFormat>();
    const auto signatureAndHeader = png.substr (0, 33);
    CHECK_FALSE (isPicture (signatureAndHeader + expanded ("\\x00\\x00\\x10\\x00tEXtComment")));
}
