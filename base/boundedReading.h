#pragma once

#include <juce_core/juce_core.h>

/** The longest reply or refusal that is read; what a server sends beyond it is left. */
static constexpr size_t maximumReplySize = 64 << 20;

/** How slowly a text may come while the window waits for it. The time begins when this is made: before the
    request, so that nothing of it goes unwatched. Times are those of a clock that is never set. */
struct readingPatience
{
    int windowSeconds = 30;    /**< Over any so many seconds of reading, at least */
    int bytesPerSecond = 1024; /**< so many bytes a second must have come. */
    int totalSeconds = 180;    /**< The text must be whole after so many. */
    double start = juce::Time::getMillisecondCounterHiRes();
};

/** Reads a stream to its end, or `maximum` bytes of it. Memory follows what arrives, never what the stream
    announces. Nothing when it came too slowly; a stream from the network is then given up in time. */
juce::MemoryBlock readAtMost (juce::InputStream& stream, size_t maximum = maximumReplySize,
                              const readingPatience& patience = {});
