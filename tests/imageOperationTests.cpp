#include "ui/imageOperations.h"
#include <catch2/catch.hpp>

/** A pixel's premultiplied bytes, as 0xAARRGGBB. */
static juce::uint32 rawPixel (const juce::Image& image, int x, int y)
{
    const juce::Image::BitmapData pixels (image, juce::Image::BitmapData::readOnly);
    return reinterpret_cast<const juce::PixelARGB*> (pixels.getPixelPointer (x, y))->getInARGBMaskOrder();
}

static juce::Image plainImage (juce::uint32 argb)
{
    juce::Image image (juce::Image::ARGB, 2, 1, true);
    image.clear (image.getBounds(), juce::Colour (argb));
    return image;
}

TEST_CASE ("over and tint give the exact premultiplied pixel")
{
    const struct
    {
        juce::uint32 colour, under, over, tinted; // the former two not premultiplied
    } cases[] = {
        { 0xff204060, 0x80202020, 0xff204060, 0x80102030 },
        { 0x80804020, 0xff102030, 0xff483028, 0xff483028 }, // 0x40 + 0x10 x 127 / 255 = 71.97, rounded
        { 0x80804020, 0x80ffffff, 0xc07f5f4f, 0x805f4f47 },
        { 0x80804020, 0x00000000, 0x80402010, 0x00000000 }, // a tint stays inside what is there
    };

    for (auto& c : cases)
    {
        auto combined = plainImage (c.under), tinted = plainImage (c.under);
        combineOver (combined, plainImage (c.colour));
        tintImage (tinted, juce::Colour (c.colour));
        CHECK (rawPixel (combined, 1, 0) == c.over);
        CHECK (rawPixel (tinted, 1, 0) == c.tinted);
    }
}
