#include "bench/figures.h"
#include "ui/jpseudomodaldialog.h"
#include "ui/lookAndFeelKlangora.h"

/** Repaints the overlay of a dialog as large as the store's, in a holder, into a picture as a window does. */
static double repaintOverlay()
{
    lookAndFeelKlangora::install();

    juce::Component holder;
    holder.setSize (800, 600);
    auto& dialog = *new jpseudomodaldialog (&holder, nullptr, "Title", {}, {}, {}, {}, {}, {}, false);
    dialog.setDialogSize (700, 500);
    auto& overlay = *dialog.getParentComponent();

    juce::Image window (juce::Image::RGB, 800, 600, true);
    juce::Graphics g (window);
    overlay.paint (g); // which keeps its picture

    return timed ([&] {
        overlay.paint (g);
        return true;
    })();
}

/** What a repaint comes down to when the picture is there. */
static double drawPicture()
{
    juce::Image window (juce::Image::RGB, 800, 600, true), picture (juce::Image::ARGB, 800, 600, true);
    picture.clear (picture.getBounds(), juce::Colour (0x66102030));
    juce::Graphics g (window);

    return timed ([&] {
        g.drawImageAt (picture, 0, 0);
        return true;
    })();
}

static const int registered = [] {
    addFigure ({ "a repaint of a dialog's overlay, 800 x 600", "one picture of that size", 0.67, 15 },
               repaintOverlay, drawPicture);
    return 0;
}();
