#pragma once

#include <juce_core/juce_core.h>

/** The longest reply or refusal that is read; what a server sends beyond it is left. */
static constexpr size_t maximumReplySize = 64 << 20;

/** Reads a stream to its end, or `maximum` bytes of it. Memory follows what arrives, never what the stream
    announces. */
juce::MemoryBlock readAtMost (juce::InputStream& stream, size_t maximum = maximumReplySize);
