#include "content/itemDownload.h"
#include "base/boundedReading.h"
#include "base/validText.h"

static constexpr double tickMs = 40.0;
static constexpr int waitMs = 5;         // for a line that is slower than a tick
static constexpr int plenty = 64 * 1024; // more than comes while a slow line is waited for

itemDownload::itemDownload (std::unique_ptr<juce::WebInputStream> bodyToReceive, int announcedSize)
    : body (std::move (bodyToReceive)),
      expected (announcedSize)
{
    jassert (body != nullptr && expected > 0);
}

bool itemDownload::receive()
{
    jassert (body != nullptr);

    const auto start = juce::Time::getMillisecondCounterHiRes();

    for (auto now = start; now - start < tickMs;)
    {
        const auto space = received.makeSpace();

        const auto count = space.size > 0 ? body->readSome (space.start, space.size, waitMs) : 0;
        received.add (count);

        // With the announced size there, the end of the stream is not waited for: it may come much later.
        if (space.size == 0 || received.getSize() >= expected || body->isExhausted())
        {
            body.reset();
            return false;
        }

        // Whoever had to be waited for has nothing more just now. Plenty takes its time, too.
        if (std::exchange (now, juce::Time::getMillisecondCounterHiRes()) + waitMs < now && count < plenty)
            break;
    }

    return true;
}

int itemDownload::percent() const
{
    return (int) juce::jmin ((juce::int64) 100, received.getSize() * 100 / expected);
}

bool itemDownload::save (const juce::File& target)
{
    safeFileWriter writer (target);
    return received.moveTo (writer) && writer.commit();
}

//==============================================================================
/** The size that a reply announces; 0 for none, and for one that is no size of an item. */
static int announcedSize (const juce::StringPairArray& headers)
{
    const auto size = headers.getValue ("Content-Length", "0").getLargeIntValue();
    return size > 0 && size <= std::numeric_limits<int>::max() ? (int) size : 0;
}

/** An error page of some server in between is no item, nor is a part of one. */
static bool isWhole (int status)
{
    return status >= 200 && status <= 299 && status != 206;
}

openedItem openItem (const webRequest& request, const juce::String& name)
{
    const readingPatience patience;
    auto reply = openWebStream (request);

    const auto size = announcedSize (reply.headers);
    const auto type = reply.headers.getValue ("Content-Type", {});
    const juce::String zeroSize ("License server reports zero size binary download for file " + name);

    if (reply.stream == nullptr || size < 1)
        return zeroSize;

    if (type.containsIgnoreCase ("text/html"))
    {
        const auto page = readAtMost (*reply.stream, maximumReplySize, patience);
        const auto text = validText (page.getData(), page.getSize());
        return text.isNotEmpty() ? text : zeroSize;
    }

    if (! isWhole (reply.status))
        return zeroSize;

    if (type.isEmpty())
        return "Unknown Content-Type. Error downloading file " + name;

    return std::make_unique<itemDownload> (std::move (reply.stream), size);
}
