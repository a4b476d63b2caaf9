#pragma once

#include "store/genericlistener.h"
#include "ui/jInvisibleComponent.h"
#include "ui/jpseudomodaldialogbuttonbar.h"
#include "ui/jpseudomodaldialogtitlebar.h"
#include "ui/openDialogList.h"
#include <memory>

/** A dialog inside its holder, or in a window of its own, that stays live in the normal message loop: there is no
    modal loop, and its result reaches a listener later. A tinted overlay covers the holder; the dialog lies on it
    between a title bar and a bar of one to three buttons.

    Make one with `new`: it owns itself. Finishing it deletes its window, or its overlay, and with that the dialog
    and its bars. Deleting the dialog takes the same along, as does deleting the holder, without a result.
    Message thread only. */
class jpseudomodaldialog : public juce::Component
{
public:
    static constexpr int barHeight = 24; /**< Height of each bar, pixels. */

    /** Builds the dialog and shows it.

        @param holderToUse   what the overlay covers; with null the dialog makes a window of its own
        @param ownerToTell   gets the result, may be null, must outlive the dialog
        @param label1        "DONE" when empty. Without labels 2 and 3 there is one button, which calls `done`.
        @param result1       the result that goes with label 1, and so on
        @param windowHasShadow  whether a window of its own casts a shadow */
    jpseudomodaldialog (juce::Component* holderToUse, genericlistener* ownerToTell, const juce::String& title,
                        const juce::String& label1, const juce::String& result1, const juce::String& label2,
                        const juce::String& result2, const juce::String& label3, const juce::String& result3,
                        bool windowHasShadow);
    ~jpseudomodaldialog() override;

    /** Called first by finishDialog. */
    virtual void beforeResult (const juce::String& result, const juce::var& a, const juce::var& b,
                               const juce::var& c);

    /** Called by finishDialog after the listener. */
    virtual void afterResult (const juce::String& result, const juce::var& a, const juce::var& b,
                              const juce::var& c);

    /** Gives the dialog its default bounds: nine tenths of the holder's width, 500 pixels high, centred. */
    virtual void placeDialog();

    /** Closes with "Done". Called when the user closes the dialog: by the single button, by a click outside it,
        by Escape, or through the window manager. */
    virtual void done();

    /** Called when the command that closes the dialog arrives. */
    virtual void aboutToClose (int commandId);

    /** Closes in a later pass of the message loop; with "Done" when the result is empty. */
    virtual void closeWithResult (const juce::String& result);

    /** Tells the listener, but for an empty result, and then deletes the dialog: `this` is gone on return. A call
        from within the hooks or the listener does nothing. */
    void finishDialog (const juce::String& result, const juce::var& a, const juce::var& b,
                       const juce::var& c);

    /** Sizes the dialog without its bars, puts it below the title bar of its own window or in the middle of its
        holder, and shows it. A width or height below 1 keeps the current one. */
    void setDialogSize (int width, int height);

    /** What every request of the user to close comes to: `done`, but while a message box is open only that box is
        brought to the front. `this` may be gone on return. */
    void requestClose();

    /** Empty: pages draw their own content. */
    void paint (juce::Graphics&) override;
    void resized() override;
    void moved() override;
    void handleCommandMessage (int commandId) override;

    /** Escape closes, and Space presses the button that has the focus. Inside a holder every other key that the
        page leaves ends here too, so that nothing behind the overlay acts on it; Tab moves the focus, and
        combinations with Alt are the system's. */
    bool keyPressed (const juce::KeyPress&) override;

private:
    friend class jInvisibleComponent;

    void layOutBars();
    void deleteFrame();

    jInvisibleComponent* overlay = nullptr; // owns the dialog; null while it deletes it
    std::unique_ptr<jpseudomodaldialogtitlebar> titleBar;
    std::unique_ptr<jpseudomodaldialogbuttonbar> buttonBar;
    juce::Component::SafePointer<juce::Component> holder;
    genericlistener* listener;
    bool ownWindow = false;
    juce::String pendingResult;
    bool isFinishing = false;
    openDialogList::handle::ptr listed;

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (jpseudomodaldialog)
};
