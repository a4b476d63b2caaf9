#include "ui/pageBanner.h"

const juce::Rectangle<int> pageBanner::bounds (0, 0, 700, 48);

pageBanner::pageBanner (const void* picture, int size)
    : banner (juce::ImageCache::getFromMemory (picture, size))
{}

void pageBanner::draw (juce::Graphics& g, juce::RectanglePlacement placement) const
{
    g.setColour (juce::Colours::black);
    g.drawImageWithin (banner, bounds.getX(), bounds.getY(), bounds.getWidth(), bounds.getHeight(), placement,
                       false);
}
