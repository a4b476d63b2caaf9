#include "bench/figures.h"
#include "ui/jInvisibleComponent.h"
#include "ui/jpseudomodaldialog.h"
#include "ui/lookAndFeelKlangora.h"

static constexpr int width = 1280, height = 800;

/** A dialog over a holder, and what the overlay is painted on. */
struct paintedOverlay
{
    paintedOverlay()
    {
        lookAndFeelKlangora::install();
        holder.setSize (width, height);
        new jpseudomodaldialog (&holder, nullptr, "Title", {}, {}, {}, {}, {}, {}, false);

        for (auto* child : holder.getChildren())
            if (auto* found = dynamic_cast<jInvisibleComponent*> (child))
                overlay = found;
    }

    juce::Component holder;
    jInvisibleComponent* overlay = nullptr;
    juce::Image screen{ juce::Image::RGB, width, height, true };
    juce::Image picture{ juce::Image::ARGB, width, height, true };
};

static void paintCached (benchmark::State& state)
{
    paintedOverlay test;
    juce::Graphics g (test.screen);
    test.overlay->paint (g);

    for (auto _ : state)
        test.overlay->paint (g);
}

static void paintComposed (benchmark::State& state)
{
    paintedOverlay test;
    juce::Graphics g (test.screen);

    for (auto _ : state)
    {
        test.overlay->childBoundsChanged (nullptr);
        test.overlay->paint (g);
    }
}

static void copyPicture (benchmark::State& state)
{
    paintedOverlay test;
    test.picture.clear (test.picture.getBounds(), juce::Colour (0x66102030));
    juce::Graphics g (test.screen);

    for (auto _ : state)
        g.drawImageAt (test.picture, 0, 0);
}

static const int registered = [] {
    addFigure ({ "repaint of a dialog's overlay, 1280 x 800", "one picture of that size drawn", 1 / 1.5 },
               paintCached, copyPicture);
    addFigure ({ "the same", "composed anew", 5 }, paintCached, paintComposed);
    return 0;
}();
