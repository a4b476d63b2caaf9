#pragma once

#include "base/safeFileWriter.h"
#include <juce_core/juce_core.h>
#include <vector>

/** Bytes that arrive piece by piece, held until all are there. It grows by one chunk at a time and never copies
    what it has. A chunk is so large that the C libraries take it from the system by itself, as pages that cost
    memory only once they are written to, and give it back whole: the connection's own buffers cannot leave holes
    between the chunks. So it takes no more memory than what arrived. */
class receiveBuffer
{
public:
    explicit receiveBuffer (size_t bytesPerChunk = size_t{ 36 } * 1024 * 1024)
        : chunkSize (bytesPerChunk)
    {}

    /** Where bytes may be put, and how many. */
    struct space
    {
        char* start;
        int size; /**< 0 when there is no memory to hold more. */
    };

    /** Room for what comes next. */
    space makeSpace();

    /** Takes the first so many bytes of the room that was made last. */
    void add (int count);

    juce::int64 getSize() const { return size; }

    /** Writes all of it. What is written gives its memory back at once: the system needs as much for the file, and
        what is warm already. Nothing can be added afterwards. */
    bool moveTo (safeFileWriter& writer);

private:
    const size_t chunkSize;
    std::vector<juce::HeapBlock<char>> chunks; // all of chunkSize, only the last not full
    juce::int64 size = 0;
};
