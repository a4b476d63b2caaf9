#pragma once

#include "content/receiveBuffer.h"
#include "net/webStream.h"
#include <variant>

/** One item on its way: its bytes as they arrive. Made by openItem. */
class itemDownload
{
public:
    /** Receives a body that was announced with so many bytes. There is a stream, and the size is above 0. */
    itemDownload (std::unique_ptr<juce::WebInputStream> body, int announcedSize);

    /** Receives what has arrived, for at most about 40 ms, so that the window gets its turn, and returns whether
        more is to come. No more comes once the announced size is there, after a broken connection, and when memory
        runs out. Not to be called again after that. */
    bool receive();

    /** Share of the announced size that has arrived, 0 to 100. */
    int percent() const;

    /** The size that the reply announced, in bytes. */
    int expectedSize() const { return expected; }

    /** Bytes that have arrived. */
    juce::int64 receivedSize() const { return received.getSize(); }

    /** Writes what has arrived, wholly or not at all. Once: the bytes are gone then. */
    bool save (const juce::File& target);

private:
    std::unique_ptr<juce::WebInputStream> body; // null once no more comes
    const int expected;
    receiveBuffer received;

    JUCE_DECLARE_NON_COPYABLE (itemDownload)
};

/** What came of the request for an item: its download, or why there is none, as a text for the user. */
using openedItem = std::variant<std::unique_ptr<itemDownload>, juce::String>;

/** Sends the request and judges the head of the reply. A store that refuses says so in a web page, which is read
    here. `name` is used in messages only. Blocks as openWebStream and readAtMost do. */
openedItem openItem (const webRequest& request, const juce::String& name);
