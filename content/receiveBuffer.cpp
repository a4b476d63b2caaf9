#include "content/receiveBuffer.h"

receiveBuffer::space receiveBuffer::makeSpace()
{
    static constexpr size_t largest = 1 << 30;
    const auto used = (size_t) size % chunkSize;

    if (used == 0 && (size_t) size == chunks.size() * chunkSize)
    {
        juce::HeapBlock<char> chunk (chunkSize);

        if (chunk == nullptr)
            return { nullptr, 0 };

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
