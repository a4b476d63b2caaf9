#pragma once

#include <juce_core/juce_core.h>

/** What the store of the probe offers: relative paths. */
inline const juce::StringArray probeTargets{ "old.sa", "new/folder/item.sa" };

/** The bytes of an item of a build with one digit. */
juce::MemoryBlock probeItem (const char* build);
