#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

/** The smallest rectangle around the bounds of a component's children, of all or of the visible ones. The first of
    them starts it even when it has no width or height; a further one without leaves it as it is. Empty at the
    origin without children. */
juce::Rectangle<int> childrenUnion (const juce::Component& parent, bool onlyVisible);
