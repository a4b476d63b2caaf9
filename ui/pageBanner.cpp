#include "ui/pageBanner.h"
#include "assets.h"
#include <iterator>
#include <utility>

const juce::Rectangle<int> pageBanner::bounds (0, 0, 700, 48);

namespace
{
struct pictureFile
{
    const void* bytes;
    int size;
};

struct scaledBanner
{
    int percent;
    pictureFile knobs, inputs;
};
}

static const scaledBanner banners[] = {
    { 100,
      { assets::bannerwelcome_png, assets::bannerwelcome_pngSize },
      { assets::banneraccount_png, assets::banneraccount_pngSize } },
    { 125,
      { assets::bannerwelcome125_png, assets::bannerwelcome125_pngSize },
      { assets::banneraccount125_png, assets::banneraccount125_pngSize } },
    { 150,
      { assets::bannerwelcome150_png, assets::bannerwelcome150_pngSize },
      { assets::banneraccount150_png, assets::banneraccount150_pngSize } },
    { 200,
      { assets::bannerwelcome200_png, assets::bannerwelcome200_pngSize },
      { assets::banneraccount200_png, assets::banneraccount200_pngSize } },
    { 300,
      { assets::bannerwelcome300_png, assets::bannerwelcome300_pngSize },
      { assets::banneraccount300_png, assets::banneraccount300_pngSize } },
};

static juce::Image load (const scaledBanner& banner, pageBanner::motif motif)
{
    const auto& file = motif == pageBanner::motif::knobs ? banner.knobs : banner.inputs;
    return juce::ImageCache::getFromMemory (file.bytes, file.size);
}

/** The smallest one that needs not be enlarged, else the largest. */
static const scaledBanner& bannerFor (float scale)
{
    for (auto& banner : banners)
        if ((float) banner.percent >= 100.0f * scale - 0.5f)
            return banner;

    return *(std::end (banners) - 1);
}

pageBanner::pageBanner (motif motifToShow)
    : shown (motifToShow),
      banner (load (banners[0], motifToShow))
{}

void pageBanner::draw (juce::Graphics& g, juce::RectanglePlacement placement)
{
    g.setColour (juce::Colours::black);
    g.setImageResamplingQuality (juce::Graphics::highResamplingQuality);
    g.drawImageWithin (pictureFor (g.getInternalContext().getPhysicalPixelScaleFactor()), bounds.getX(),
                       bounds.getY(), bounds.getWidth(), bounds.getHeight(), placement, false);
}

const juce::Image& pageBanner::pictureFor (float scale)
{
    const auto& wanted = bannerFor (scale);

    if (wanted.percent == banners[0].percent)
        return banner;

    if (std::exchange (percent, wanted.percent) != wanted.percent)
        enlarged = load (wanted, shown);

    return enlarged;
}
