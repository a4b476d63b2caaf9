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

bool receiveBuffer::writeTo (safeFileWriter& writer) const
{
    auto left = (size_t) size;

    for (auto& chunk : chunks)
    {
        const auto count = juce::jmin (left, chunkSize);

        if (! writer.write (chunk, count))
            return false;

        left -= count;
    }

    return true;
}
