#pragma once

#include <juce_core/juce_core.h>

/** The string value at a full registry path ("HKEY_LOCAL_MACHINE\...\ValueName"), empty when there is none.

    Where there is no Windows registry the same paths are keys of an XML settings file,
    "Dorvik Electronics/registry.settings" below $XDG_CONFIG_HOME, or below ~/.config without that variable.
    A missing or damaged file, and one above 1 MB, holds no values. */
juce::String getRegistryValue (const juce::String& valuePath);
