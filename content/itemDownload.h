#pragma once

#include "content/receiveBuffer.h"
#include "net/webStream.h"

/** One item on its way: the reply to the request for it, and its bytes as they arrive. */
class itemDownload
{
public:
    /** Takes over the reply. `name` is used in messages only. */
    itemDownload (webReply reply, const juce::String& name);

    /** Why the item cannot be received, as a text for the user; empty when it can. A store that refuses says so
        in a web page, which is read here. */
    juce::String refusal();

    /** Receives for about 40 ms, so that the window gets its turn, and returns whether more is to come. No more
        comes after the end, after a broken connection, when there is more than announced, and when memory runs
        out. */
    bool receive();

    /** Share of the announced size that has arrived, 0 to 100. */
    int percent() const;

    /** The size that the reply announced in bytes, 0 for none and for one that is no size of an item. */
    int expectedSize() const { return expected; }

    /** Bytes that have arrived. */
    juce::int64 receivedSize() const { return body.getSize(); }

    /** Writes what has arrived, wholly or not at all. */
    bool save (const juce::File& target) const;

private:
    webReply reply;
    const juce::String name;
    const int expected;
    receiveBuffer body;
    int pieceSize = 4096;
};
