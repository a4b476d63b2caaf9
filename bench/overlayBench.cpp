#include "bench/figures.h"
#include "ui/jpseudomodaldialog.h"
#include "ui/lookAndFeelKlangora.h"

/** Repaints the overlay of a dialog as large as the store's, in a holder, into a picture as a window does. */
static void repaint (benchmark::State& state, bool composeEachTime)
{
    juce::JUCEApplicationBase::createInstance = []() -> juce::JUCEApplicationBase* { return nullptr; };
    const juce::ScopedJuceInitialiser_GUI framework;
    lookAndFeelKlangora::install();

    juce::Component holder;
    holder.setSize (800, 600);
    auto& dialog = *new jpseudomodaldialog (&holder, nullptr, "Title", {}, {}, {}, {}, {}, {}, false);
    dialog.setDialogSize (700, 500);
    auto& overlay = *dialog.getParentComponent();

    juce::Image window (juce::Image::RGB, 800, 600, true);
    juce::Graphics g (window);

    for (auto _ : state)
    {
        if (composeEachTime)
            overlay.childBoundsChanged (nullptr);

        overlay.paint (g);
    }
}

/** What a repaint comes down to when the picture is there. */
static void drawPicture (benchmark::State& state)
{
    juce::Image window (juce::Image::RGB, 800, 600, true), picture (juce::Image::ARGB, 800, 600, true);
    picture.clear (picture.getBounds(), juce::Colour (0x66102030));
    juce::Graphics g (window);

    for (auto _ : state)
        g.drawImageAt (picture, 0, 0);
}

static const int registered = [] {
    const std::string name = "a repaint of a dialog's overlay, 800 x 600";
    const auto cached = [] (benchmark::State& state) { repaint (state, false); };
    addFigure ({ name, "one picture of that size", 1 / 1.5 }, cached, drawPicture);
    addFigure ({ name, "composing its picture anew", 5 }, cached,
               [] (benchmark::State& state) { repaint (state, true); });
    return 0;
}();
