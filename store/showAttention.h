#pragma once

#include <juce_core/juce_core.h>

/** The program's one alert: an information box titled with the product's name, with one button "Ok". Returns
    when the user has dismissed it. Timers fire and windows can be closed meanwhile: afterwards a caller checks
    that it still exists. Does nothing further when the program is quitting. Message thread only. */
void showAttention (const juce::String& message);
