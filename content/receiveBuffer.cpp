#include "content/receiveBuffer.h"

#if JUCE_LINUX
    #include <sys/mman.h>
    #include <unistd.h>
#endif

/** Asks the system for large pages: it hands out memory page by page, at the first use of each, which for small ones
    takes about as long as the line needs for their bytes. */
static void wantLargePages (char* start, size_t size)
{
#if JUCE_LINUX
    const auto page = (size_t) sysconf (_SC_PAGESIZE);
    const auto inside = (page - reinterpret_cast<size_t> (start) % page) % page;
    madvise (start + inside, size - inside, MADV_HUGEPAGE);
#else
    juce::ignoreUnused (start, size);
#endif
}

receiveBuffer::space receiveBuffer::makeSpace()
{
    static constexpr size_t largest = 1 << 30;
    const auto used = (size_t) size % chunkSize;

    if (used == 0 && (size_t) size == chunks.size() * chunkSize)
    {
        juce::HeapBlock<char> chunk (chunkSize);

        if (chunk == nullptr)
            return { nullptr, 0 };

        wantLargePages (chunk, chunkSize);
        chunks.push_back (std::move (chunk));
    }

    return { chunks.back() + used, (int) juce::jmin (chunkSize - used, largest) };
}

void receiveBuffer::add (int count)
{
    jassert (count >= 0 && (size_t) size + (size_t) count <= chunks.size() * chunkSize);
    size += count;
}

bool receiveBuffer::moveTo (safeFileWriter& writer)
{
    for (auto& chunk : chunks)
    {
        const auto count = juce::jmin ((size_t) size, chunkSize);

        if (! writer.write (chunk, count))
            return false;

        size -= (juce::int64) count;
        chunk.free();
    }

    return true;
}
