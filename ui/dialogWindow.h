#pragma once

#include "ui/repaintFallback.h"
#include <optional>

class jpseudomodaldialog;

/** The window of a dialog that has no holder: no frame and no title bar, its content fills it and decides on its
    size. The system's requests to close are the dialog's. A window that is still open when the program ends is
    deleted with its dialog. */
class dialogWindow : public juce::DocumentWindow, private juce::DeletedAtShutdown
{
public:
    /** Opens the window, empty, in the middle of the main display. */
    dialogWindow (jpseudomodaldialog&, const juce::String& title, bool hasShadow);

    /** Takes the content along. */
    ~dialogWindow() override;

    /** A window that is larger than its display is shown smaller, so that all of it can be reached. */
    float getDesktopScaleFactor() const override;

private:
    void closeButtonPressed() override;
    juce::BorderSize<int> getBorderThickness() override;
    void childBoundsChanged (juce::Component*) override;

    jpseudomodaldialog& dialog;
    float scaleToFit = 1.0f;
    std::optional<repaintFallback> repaints; // on Windows

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (dialogWindow)
};
