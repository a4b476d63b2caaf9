#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

/** Fills an area of a page with the dark, rounded panel that sets its texts and controls off the skin. */
void drawPagePanel (juce::Graphics&, juce::Rectangle<int> area);

/** The same inside the outline of a group box. */
void drawPagePanel (juce::Graphics&, const juce::GroupComponent&);
