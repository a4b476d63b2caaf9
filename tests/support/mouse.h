#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

/** The mouse moves to a point of a component that is on the screen, and there its button is or isn't down. */
void mouse (juce::Component&, int x, int y, bool isDown);

/** A press of the left button. It stays down, for what acts on that; the next move lets it go. */
void click (juce::Component&, int x, int y);

/** A press of the right button, let go again. */
void rightClick (juce::Component&, int x, int y);
