#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

/** The dialogs that are open now. */
class openDialogList
{
public:
    /** An open dialog. May outlive it; `overlay` is null from then on. */
    struct handle : juce::ReferenceCountedObject
    {
        using ptr = juce::ReferenceCountedObjectPtr<handle>;

        juce::Component::SafePointer<juce::Component> overlay;
    };

    /** Enters a dialog. Message thread only. */
    static handle::ptr add (juce::Component& overlay);

    /** Takes a dialog off the list; nothing when it is not on it. Message thread only. */
    static void remove (handle&);

    /** From any thread. */
    static bool isAnyOpen();

    /** Shows or hides the overlay of every open dialog. Message thread only. */
    static void setAllVisible (bool shouldBeVisible);

private:
    static juce::CriticalSection lock;
    static juce::ReferenceCountedArray<handle> handles;
};
