#pragma once

#include <juce_core/juce_core.h>

/** Origin of the store's web service and web site: scheme, host and port, without a trailing slash. Compiled
    in; alone in its source file, so that a test program can link another. */
juce::String storeAddress();
