#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

/** Keeps windows up to date on a display that reports no vertical blank, as remote sessions, some virtual machines
    and Wine do not. On Windows the framework paints a change at the next blank: there, it would never. Does
    nothing while blanks come in. Lives as long as the window it watches. */
class repaintFallback : private juce::Timer
{
public:
    /** Watches the display that `window`, which is on the desktop, lies on; keeps all windows painted. */
    explicit repaintFallback (juce::Component& window);

private:
    void timerCallback() override;

    int blanks = 0; // since the timer's last tick
    juce::VBlankAttachment blankCounter;
};
