#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

/** The picture across the top of a page. */
class pageBanner
{
public:
    /** Decodes a picture file that is compiled into the program; pages share it. */
    pageBanner (const void* picture, int size);

    /** Draws the picture into the top of a page, 700 x 48 units. */
    void draw (juce::Graphics&, juce::RectanglePlacement = onlyReduced) const;

    static const juce::Rectangle<int> bounds; /**< Within a page. */

    /** In the middle, and never enlarged. */
    static constexpr int onlyReduced =
        juce::RectanglePlacement::centred | juce::RectanglePlacement::onlyReduceInSize;

private:
    const juce::Image banner;

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (pageBanner)
};
