#pragma once

#include "ui/repaintFallback.h"
#include <optional>

class jpseudomodaldialog;

/** The window of a dialog that has no holder: no frame and no title bar, its content fills it and decides on its
    size. The system's requests to close are the dialog's. A window that is still open when the program ends is
    deleted with its dialog. */
class dialogWindow : public juce::DocumentWindow, private juce::AsyncUpdater, private juce::DeletedAtShutdown
{
public:
    /** Makes the window, empty, in the middle of the main display. It appears once its content has told its size,
        or else with the next pass of the message loop, and not before: a window manager may hold on to the first
        size that it sees. */
    dialogWindow (jpseudomodaldialog&, const juce::String& title, bool hasShadow);

    /** Takes the content along. */
    ~dialogWindow() override;

    /** Gives the window this size and shows it. */
    void setContentSize (juce::Rectangle<int> size);

    /** As set last, empty before. */
    juce::Rectangle<int> getContentSize() const { return contentSize; }

    /** Hides the window at once, and deletes it later: its content was deleted by itself, and the dialog with it. */
    void contentGone();

    /** A window that is larger than its display is shown smaller, so that all of it can be reached. */
    float getDesktopScaleFactor() const override;

    /** A content for which a window manager leaves too little room is drawn smaller. */
    void resized() override;

private:
    void makeNativeWindow(); // of the present size, in place of one that there is
    void closeButtonPressed() override;
    juce::BorderSize<int> getBorderThickness() override;
    void childBoundsChanged (juce::Component*) override;
    void handleAsyncUpdate() override;

    jpseudomodaldialog* dialog; // null once it is gone
    juce::Rectangle<int> contentSize;
    float scaleToFit = 1.0f;
    std::optional<repaintFallback> repaints; // on Windows

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (dialogWindow)
};
