#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

/** The picture across the top of a page, which is compiled into the program. It is there once for each of the usual
    scales of a display, drawn for its pixels; in between the next larger one is reduced. */
class pageBanner
{
public:
    enum class motif
    {
        knobs,
        inputs
    };

    explicit pageBanner (motif);

    /** Draws the picture into the top of a page. */
    void draw (juce::Graphics&, juce::RectanglePlacement = onlyReduced);

    static const juce::Rectangle<int> bounds; /**< Within a page, 700 x 48. */

    /** In the middle, and never enlarged. */
    static constexpr int onlyReduced =
        juce::RectanglePlacement::centred | juce::RectanglePlacement::onlyReduceInSize;

private:
    const juce::Image& pictureFor (float scale);

    const motif shown;
    const juce::Image banner; // for a scale of 1, 700 x 48
    juce::Image enlarged;     // for the larger scale at which it was last drawn
    int percent = 0;          // of that one

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (pageBanner)
};
