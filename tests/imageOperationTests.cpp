#include "ui/imageOperations.h"
#include <catch2/catch.hpp>

/** A pixel's premultiplied bytes, as 0xAARRGGBB. */
static juce::uint32 rawPixel (const juce::Image& image, int x, int y)
{
    const juce::Image::BitmapData pixels (image, juce::Image::BitmapData::readOnly);
    return reinterpret_cast<const juce::PixelARGB*> (pixels.getPixelPointer (x, y))->getInARGBMaskOrder();
}

/** An image of one premultiplied pixel value. */
static juce::Image plainImage (int width, int height, juce::uint32 argb)
{
    const juce::PixelARGB value ((juce::uint8) (argb >> 24), (juce::uint8) (argb >> 16),
                                 (juce::uint8) (argb >> 8), (juce::uint8) argb);
    juce::Image image (juce::Image::ARGB, width, height, true);
    const juce::Image::BitmapData pixels (image, juce::Image::BitmapData::writeOnly);

    for (int y = 0; y < height; ++y)
        std::fill_n (reinterpret_cast<juce::PixelARGB*> (pixels.getLinePointer (y)), width, value);

    return image;
}

TEST_CASE ("over and tint give the exact premultiplied pixel")
{
    const struct
    {
        juce::uint32 colour, under, over, tinted;
    } cases[] = {
        { 0x00ffffff, 0xff204060, 0xff204060, 0xff204060 },
        { 0xff204060, 0x80101010, 0xff204060, 0x80102030 },
        { 0x80804020, 0xff102030, 0xff483028, 0xff483028 }, // 0x40 + 0x10 x 127 / 255 = 71.97, rounded
        { 0x80804020, 0x80808080, 0xc0806050, 0x80605048 },
        { 0x80804020, 0x00000000, 0x80402010, 0x00000000 }, // a tint stays inside what is there
    };

    for (auto& c : cases)
    {
        const juce::Colour colour (c.colour);
        auto combined = plainImage (2, 1, c.under), tinted = plainImage (2, 1, c.under);
        combineOver (combined, plainImage (2, 1, colour.getPixelARGB().getInARGBMaskOrder()));
        tintImage (tinted, colour);
        CHECK (rawPixel (combined, 1, 0) == c.over);
        CHECK (rawPixel (tinted, 1, 0) == c.tinted);
    }

    auto image = plainImage (2, 1, 0xffff0080);
    combineOver (image, plainImage (2, 1, 0x00ff0000));
    CHECK (rawPixel (image, 1, 0) == 0xffff0080); // clamped, not wrapped
}
