#pragma once

#include <juce_core/juce_core.h>

/** Whether there is an ordinary file, or a link to one: no folder, and no pipe, socket or device either, which a
    reader might wait on for ever. */
bool isOrdinaryFile (const juce::File& file);
