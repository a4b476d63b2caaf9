#include "content/itemDownload.h"
#include "base/boundedReading.h"
#include "base/validText.h"

namespace
{
constexpr double tickMs = 40.0;

// A read waits until all that it asked for is there. The pieces are fitted to the speed of the connection, so that
// on a slow one a tick is not held up by a large piece.
constexpr int smallestPiece = 512, largestPiece = 2 * 1024 * 1024;
constexpr double fastPieceMs = 4.0, slowPieceMs = 16.0;

int announcedSize (const juce::StringPairArray& headers)
{
    const auto size = headers.getValue ("Content-Length", "0").getLargeIntValue();
    return size > 0 && size <= std::numeric_limits<int>::max() ? (int) size : 0;
}
}

itemDownload::itemDownload (webReply replyToRead, const juce::String& itemName)
    : reply (std::move (replyToRead)),
      name (itemName),
      expected (announcedSize (reply.headers))
{}

juce::String itemDownload::refusal()
{
    juce::String zeroSize ("License server reports zero size binary download for file " + name);

    if (reply.stream == nullptr || expected < 1)
        return zeroSize;

    const auto type = reply.headers.getValue ("Content-Type", {});

    if (type.containsIgnoreCase ("text/html"))
    {
        const auto page = readAtMost (*reply.stream);
        const auto text = validText (page.getData(), page.getSize());
        return text.isNotEmpty() ? text : zeroSize;
    }

    return type.isNotEmpty() ? juce::String() : "Unknown Content-Type. Error downloading file " + name;
}

bool itemDownload::receive()
{
    const auto start = juce::Time::getMillisecondCounterHiRes();

    for (auto now = start; now - start < tickMs;)
    {
        const auto got = body.readFrom (*reply.stream, pieceSize);

        if (got == 0 || body.getSize() > expected || reply.stream->isExhausted())
        {
            reply.stream.reset();
            return false;
        }

        const auto before = std::exchange (now, juce::Time::getMillisecondCounterHiRes());

        if (now - before < fastPieceMs)
            pieceSize = juce::jmin (pieceSize * 2, largestPiece);
        else if (now - before > slowPieceMs)
            pieceSize = juce::jmax (pieceSize / 2, smallestPiece);
    }

    return true;
}

int itemDownload::percent() const
{
    return (int) juce::jmin ((juce::int64) 100, body.getSize() * 100 / expected);
}

bool itemDownload::save (const juce::File& target) const
{
    safeFileWriter writer (target);
    return body.writeTo (writer) && writer.commit();
}
