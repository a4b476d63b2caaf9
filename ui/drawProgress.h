#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

/** Draws a track, filled from the left by a share of 0 to 1. */
void drawProgress (juce::Graphics&, juce::Rectangle<int> track, double share);
