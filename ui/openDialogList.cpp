#include "ui/openDialogList.h"

juce::CriticalSection openDialogList::lock;
juce::ReferenceCountedArray<openDialogList::handle> openDialogList::handles;

openDialogList::handle::ptr openDialogList::add (juce::Component& overlay)
{
    handle::ptr added (new handle());
    added->overlay = &overlay;

    const juce::ScopedLock scope (lock);
    handles.add (added);
    return added;
}

void openDialogList::remove (handle& removed)
{
    const juce::ScopedLock scope (lock);
    removed.overlay = nullptr;
    handles.removeObject (&removed);
}

bool openDialogList::isAnyOpen()
{
    const juce::ScopedLock scope (lock);
    return ! handles.isEmpty();
}

void openDialogList::setAllVisible (bool shouldBeVisible)
{
    const juce::ScopedLock scope (lock);

    // A copy: what is shown or hidden may close a dialog, or open another.
    for (auto* dialog : juce::ReferenceCountedArray<handle> (handles))
        if (dialog->overlay != nullptr)
            dialog->overlay->setVisible (shouldBeVisible);
}
