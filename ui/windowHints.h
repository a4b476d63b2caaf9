#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

/** What a window manager is told about a window. Windows are on the desktop already. */
namespace windowHints
{
/** The program's icon, in every size that it is drawn in. On Windows it comes with the program file. */
void setIcon (juce::Component& window);

/** Makes a window a dialog of another one: kept above it, without a place in the task bar. The system takes it down
    with its owner. */
void setDialogOf (juce::Component& window, juce::Component& owner);
}
