#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

/** What a person would find in a component, in words: one line for each of its children, in the order in which they
    lie on each other and indented below their parent. A line has the kind, the bounds in the parent, the text and
    whatever makes the child look or behave as it does. Nothing in it depends on the fonts of the machine. */
juce::StringArray componentText (juce::Component&);
