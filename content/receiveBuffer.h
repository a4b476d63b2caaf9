#pragma once

#include "content/safeFileWriter.h"
#include <vector>

/** Bytes that arrive piece by piece, held until all are there. It grows by one chunk at a time and never copies
    what it has, so that it takes no more memory than what arrived, to within a chunk. */
class receiveBuffer
{
public:
    explicit receiveBuffer (size_t bytesPerChunk = size_t{ 4 } * 1024 * 1024)
        : chunkSize (bytesPerChunk)
    {}

    /** Reads what comes next, at most `maximum` bytes, and returns how many those were: 0 at the end of the
        stream, and when there is no memory to hold more. */
    int readFrom (juce::InputStream& source, int maximum);

    juce::int64 getSize() const { return size; }

    /** Writes all of it. */
    bool writeTo (safeFileWriter& writer) const;

private:
    const size_t chunkSize;
    std::vector<juce::HeapBlock<char>> chunks; // all of chunkSize, only the last not full
    juce::int64 size = 0;
};
