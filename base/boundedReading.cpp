#include "base/boundedReading.h"
#include <vector>

static constexpr int lookAgainMs = 100;

namespace
{
/** Holds what has arrived against a patience, second by second. */
class arrivalWatch
{
public:
    explicit arrivalWatch (const readingPatience& allowed)
        : patience (allowed)
    {}

    bool isTooSlow (size_t received)
    {
        const auto now = juce::Time::getMillisecondCounterHiRes();
        const auto second = (size_t) ((now - begin) / 1000.0), window = (size_t) patience.windowSeconds;

        while (bySecond.size() <= second)
            bySecond.push_back (received);

        return now - patience.start > patience.totalSeconds * 1000.0
               || (second >= window
                   && received - bySecond[second - window] < window * (size_t) patience.bytesPerSecond);
    }

private:
    const readingPatience patience;
    const double begin = juce::Time::getMillisecondCounterHiRes();
    std::vector<size_t> bySecond; // what had arrived by then
};
}

juce::MemoryBlock readAtMost (juce::InputStream& stream, size_t maximum, const readingPatience& patience)
{
    static constexpr size_t pieceSize = 64 << 10;
    juce::HeapBlock<char> piece (pieceSize);
    juce::MemoryBlock bytes;
    juce::MemoryOutputStream collected (bytes, false);
    auto* fromNetwork = dynamic_cast<juce::WebInputStream*> (&stream);
    arrivalWatch watch (patience);

    while (collected.getDataSize() < maximum)
    {
        const auto wanted = (int) juce::jmin (pieceSize, maximum - collected.getDataSize());
        const auto count = fromNetwork != nullptr ? fromNetwork->readSome (piece, wanted, lookAgainMs)
                                                  : stream.read (piece, wanted);
        collected.write (piece, (size_t) juce::jmax (0, count));

        if (watch.isTooSlow (collected.getDataSize()))
            return {};

        if (count <= 0 && (fromNetwork == nullptr || stream.isExhausted()))
            break;
    }

    collected.flush(); // cuts the block to what was written
    return bytes;
}
