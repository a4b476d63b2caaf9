#include "ui/focusKeeper.h"

focusKeeper::focusKeeper()
    : focused (juce::Component::getCurrentlyFocusedComponent())
{
    // The window takes down its focused control now. A loss that the system reports later changes nothing.
    if (focused != nullptr)
        if (auto* window = focused->getPeer())
            window->handleFocusLoss();
}

focusKeeper::~focusKeeper()
{
    if (focused != nullptr && focused->isShowing())
        focused->grabKeyboardFocus();
}
