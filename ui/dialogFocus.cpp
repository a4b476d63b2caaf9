#include "ui/dialogFocus.h"

static bool canHaveFocus (const juce::Component* control)
{
    return control != nullptr && control->isShowing() && control->isEnabled();
}

dialogFocus::dialogFocus (juce::Component& overlayToWatch)
    : overlay (overlayToWatch)
{
    juce::Desktop::getInstance().addFocusChangeListener (this);
}

dialogFocus::~dialogFocus()
{
    choose (nullptr);
    juce::Desktop::getInstance().removeFocusChangeListener (this);
}

void dialogFocus::choose (juce::Component* control)
{
    if (chosen != nullptr)
        chosen->removeComponentListener (this);

    chosen = control;
    standIn = nullptr;

    if (chosen != nullptr)
        chosen->addComponentListener (this);
}

void dialogFocus::passOn (juce::Component& dialog)
{
    if (canHaveFocus (chosen))
        return chosen->grabKeyboardFocus();

    juce::KeyboardFocusTraverser traverser;
    auto controls = traverser.getAllComponents (&dialog);

    // Not while a page fades: a key that was meant for it would press the bar's button.
    if (controls.empty() && chosen != nullptr && chosen->isShowing())
        controls = traverser.getAllComponents (&overlay);

    if (controls.empty())
        return;

    standIn = controls.front();
    standIn->grabKeyboardFocus();
}

void dialogFocus::globalFocusChanged (juce::Component* focused)
{
    if (! overlay.isParentOf (focused))
        return;

    if (! focused->isEnabled()) // a window that becomes active again does not look
        overlay.grabKeyboardFocus();
    else if (focused == standIn && chosen != nullptr)
        giveBack();
    else
        choose (focused);
}

void dialogFocus::componentEnablementChanged (juce::Component&)
{
    giveBack();
}

void dialogFocus::giveBack()
{
    const auto* focused = juce::Component::getCurrentlyFocusedComponent();

    if (standIn != nullptr && (focused == standIn || focused == &overlay) && canHaveFocus (chosen))
        chosen->grabKeyboardFocus();
}
