#include "ui/imageOperations.h"

/** One channel of a blend, rounded and clamped. */
static juce::uint8 toChannel (float value)
{
    return (juce::uint8) juce::jlimit (0, 255, juce::roundToInt (value));
}

/** Lays a premultiplied source, weighed by `coverage`, over a pixel. */
static void blendPixel (juce::PixelARGB& pixel, juce::PixelARGB source, float coverage)
{
    const auto kept = 1.0f - (float) source.getAlpha() / 255.0f;
    const auto blend = [=] (juce::uint8 over, juce::uint8 under) {
        return toChannel ((float) over * coverage + (float) under * kept);
    };

    pixel.setARGB (blend (source.getAlpha(), pixel.getAlpha()), blend (source.getRed(), pixel.getRed()),
                   blend (source.getGreen(), pixel.getGreen()), blend (source.getBlue(), pixel.getBlue()));
}

/** Visits the clipped area of an image row by row: the row's first pixel, its width, its index in the area. */
template <typename RowFunction>
static void forEachRow (juce::Image& image, juce::Rectangle<int> area, RowFunction&& visitRow)
{
    area = area.getIntersection (image.getBounds());

    if (area.isEmpty() || image.getFormat() != juce::Image::ARGB)
        return;

    const juce::Image::BitmapData pixels (image, area.getX(), area.getY(), area.getWidth(), area.getHeight(),
                                          juce::Image::BitmapData::readWrite);

    for (int y = 0; y < pixels.height; ++y)
        visitRow (reinterpret_cast<juce::PixelARGB*> (pixels.getLinePointer (y)), pixels.width, y);
}

void combineOver (juce::Image& destination, const juce::Image& source, juce::Point<int> position)
{
    const auto area =
        source.getBounds().translated (position.x, position.y).getIntersection (destination.getBounds());

    if (area.isEmpty() || source.getFormat() != juce::Image::ARGB)
        return;

    const auto from = area - position;
    const juce::Image::BitmapData over (source, from.getX(), from.getY(), from.getWidth(), from.getHeight());

    forEachRow (destination, area, [&] (juce::PixelARGB* row, int width, int y) {
        const auto* overRow = reinterpret_cast<const juce::PixelARGB*> (over.getLinePointer (y));

        for (int x = 0; x < width; ++x)
            blendPixel (row[x], overRow[x], 1.0f);
    });
}

void tintImage (juce::Image& image, juce::Colour tint)
{
    const auto pixel = tint.getPixelARGB();

    forEachRow (image, image.getBounds(), [=] (juce::PixelARGB* row, int width, int) {
        for (int x = 0; x < width; ++x)
            blendPixel (row[x], pixel, (float) row[x].getAlpha() / 255.0f);
    });
}

void fillImage (juce::Image& image, juce::Colour colour, juce::Rectangle<int> area)
{
    const auto pixel = colour.getPixelARGB();

    forEachRow (image, area, [=] (juce::PixelARGB* row, int width, int) { std::fill_n (row, width, pixel); });
}

void fillImage (juce::Image& image, juce::Colour colour)
{
    fillImage (image, colour, image.getBounds());
}

bool isSolid (const juce::Image& image)
{
    if (image.getFormat() != juce::Image::ARGB)
        return false;

    const juce::Image::BitmapData pixels (image, juce::Image::BitmapData::readOnly);
    const auto hidesWhatIsBelow = [] (juce::PixelARGB pixel) { return pixel.getAlpha() == 255; };

    for (int y = 0; y < pixels.height; ++y)
    {
        const auto* row = reinterpret_cast<const juce::PixelARGB*> (pixels.getLinePointer (y));

        if (! std::all_of (row, row + pixels.width, hidesWhatIsBelow))
            return false;
    }

    return true;
}
