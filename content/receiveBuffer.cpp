#include "content/receiveBuffer.h"

int receiveBuffer::readFrom (juce::InputStream& source, int maximum)
{
    const auto used = (size_t) size % chunkSize;

    if (used == 0 && (size_t) size == chunks.size() * chunkSize)
    {
        juce::HeapBlock<char> chunk (chunkSize);

        if (chunk == nullptr)
            return 0;

        chunks.push_back (std::move (chunk));
    }

    const auto wanted = (int) juce::jmin ((size_t) maximum, chunkSize - used);
    const auto got = juce::jmax (0, source.read (chunks.back() + used, wanted));
    size += got;
    return got;
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
