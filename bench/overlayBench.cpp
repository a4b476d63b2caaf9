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

static const int registered = [] {
    addFigure (
        { "a repaint of a dialog's overlay, 800 x 600", "composing its picture anew", 5 },
        [] (benchmark::State& state) { repaint (state, false); },
        [] (benchmark::State& state) { repaint (state, true); });
    return 0;
}();
