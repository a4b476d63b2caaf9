#include "ui/repaintFallback.h"

static constexpr int framesPerSecond =
    25; // fewer than any display's, so that a blank falls between two ticks

repaintFallback::repaintFallback (juce::Component& window)
    : blankCounter (&window, [this] { ++blanks; })
{
    startTimerHz (framesPerSecond);
}

void repaintFallback::timerCallback()
{
    if (std::exchange (blanks, 0) > 0)
        return;

    auto& desktop = juce::Desktop::getInstance();

    // Translucent windows are shadows, which do not change; painting one is not free even without a change.
    for (int i = desktop.getNumComponents(); --i >= 0;)
        if (auto* window = desktop.getComponent (i); window != nullptr && window->isOpaque())
            if (auto* peer = window->getPeer())
                peer->performAnyPendingRepaintsNow();
}
