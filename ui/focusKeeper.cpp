#include "ui/focusKeeper.h"

/** The window that the system sends keys to; null for one of another program. */
static juce::Component* windowWithKeyboard()
{
    auto& desktop = juce::Desktop::getInstance();

    for (int i = desktop.getNumComponents(); --i >= 0;)
        if (auto* window = desktop.getComponent (i); window->getPeer()->isFocused())
            return window;

    return nullptr;
}

focusKeeper::focusKeeper()
    : window (windowWithKeyboard()),
      focused (juce::Component::getCurrentlyFocusedComponent())
{
    // The window takes down its focused control now. A loss that the system reports later changes nothing.
    if (focused != nullptr)
        if (auto* peer = focused->getPeer())
            peer->handleFocusLoss();
}

focusKeeper::~focusKeeper()
{
    // A page that came up meanwhile was not to take the keyboard from the box.
    if (focused != nullptr && focused->isShowing())
        focused->grabKeyboardFocus();
    else if (window != nullptr && juce::Component::getCurrentlyFocusedComponent() == nullptr)
        window->grabKeyboardFocus();
}
