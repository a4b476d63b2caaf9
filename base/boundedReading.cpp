#include "base/boundedReading.h"

juce::MemoryBlock readAtMost (juce::InputStream& stream, size_t maximum)
{
    static constexpr size_t pieceSize = 64 << 10;
    juce::HeapBlock<char> piece (pieceSize);
    juce::MemoryBlock bytes;
    juce::MemoryOutputStream collected (bytes, false);

    while (collected.getDataSize() < maximum)
    {
        const auto wanted = juce::jmin (pieceSize, maximum - collected.getDataSize());
        const auto count = stream.read (piece, (int) wanted);

        if (count <= 0)
            break;

        collected.write (piece, (size_t) count);
    }

    collected.flush(); // cuts the block to what was written
    return bytes;
}
