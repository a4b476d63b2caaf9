#include "tests/support/scriptedServer.h"
#include "net/storeAddress.h"
#include <catch2/catch.hpp>
#include <csignal>

#if JUCE_WINDOWS
    #include <winsock2.h>
#else
    #include <sys/socket.h>
#endif

static const scriptedServer* store; // the oldest living one, or null

juce::String storeAddress()
{
    return store != nullptr ? store->origin() : "http://127.0.0.1:1"; // where nobody listens
}

//==============================================================================
std::string recordedRequest::header (const std::string& name) const
{
    juce::StringArray values;

    for (auto& headerLine : juce::StringArray::fromLines (head()))
        if (headerLine.startsWithIgnoreCase (name + ": "))
            values.add (headerLine.fromFirstOccurrenceOf (": ", false, false));

    return values.joinIntoString ("|").toStdString();
}

bool recordedRequest::isComplete() const
{
    return bytes.size() >= head().size() + 4
           && body().size() >= (size_t) std::atoi (header ("Content-Length").c_str());
}

std::string okReply (const std::string& body)
{
    return "HTTP/1.1 200 OK\r\nConnection: close\r\nContent-Type: text/xml\r\nContent-Length: "
           + std::to_string (body.size()) + "\r\n\r\n" + body;
}

//==============================================================================
/** Appends what comes within a moment; false when the client has hung up. */
static bool receive (juce::StreamingSocket& socket, std::string& bytes)
{
    char piece[65536];

    if (socket.waitUntilReady (true, 10) == 0)
        return true;

    const auto count = socket.read (piece, (int) sizeof (piece), false);
    bytes.append (piece, (size_t) juce::jmax (0, count));
    return count > 0;
}

scriptedServer::scriptedServer()
{
#if ! JUCE_WINDOWS
    setenv ("no_proxy", "127.0.0.1", 1); // libcurl takes the proxy from the environment
    std::signal (SIGPIPE, SIG_IGN);      // a client may hang up at any time
#endif

    REQUIRE (listener.createListener (0, "127.0.0.1"));
    address = "http://127.0.0.1:" + juce::String (listener.getBoundPort());
    store = store != nullptr ? store : this;
    thread = std::thread ([this] { run(); });
}

scriptedServer::~scriptedServer()
{
    stopping = true;
    thread.join();
    store = store != this ? store : nullptr;
    CHECK (received.size() == replies.size());
}

scriptedServer& scriptedServer::reply (const std::string& bytes)
{
    const juce::ScopedLock guard (lock);
    replies.emplace_back();
    return send (bytes);
}

scriptedServer& scriptedServer::add (const script::value_type& step)
{
    const juce::ScopedLock guard (lock);
    replies.back().push_back (step);
    return *this;
}

scriptedServer& scriptedServer::send (const std::string& bytes)
{
    return add ([=] {
        for (size_t sent = 0; sent < bytes.size() && ! stopping;)
        {
            if (client->waitUntilReady (false, 10) == 0)
                continue;

            const auto count = client->write (bytes.data() + sent, (int) (bytes.size() - sent));

            if (count <= 0)
                return; // the client has hung up

            sent += (size_t) count;
        }
    });
}

scriptedServer& scriptedServer::waitUntil (const condition& isOver)
{
    return add ([=] {
        for (std::string ignored; ! isOver() && ! stopping && receive (*client, ignored);)
        {}
    });
}

scriptedServer& scriptedServer::reset()
{
    return add ([this] {
        const linger atOnce{ 1, 0 };
        setsockopt ((decltype (socket (0, 0, 0))) client->getRawSocketHandle(), SOL_SOCKET, SO_LINGER,
                    reinterpret_cast<const char*> (&atOnce), sizeof (atOnce));
    });
}

//==============================================================================
/** Keeps a request, and returns what answers it. */
scriptedServer::script scriptedServer::replyTo (const recordedRequest& request)
{
    const juce::ScopedLock guard (lock);
    received.push_back (request);
    return received.size() > replies.size() ? script() : replies[received.size() - 1];
}

void scriptedServer::run()
{
    while (! stopping)
    {
        const auto isAskedAgain = client != nullptr && client->waitUntilReady (true, 5) == 1;

        if (! isAskedAgain)
        {
            if (listener.waitUntilReady (true, 5) != 1)
                continue;

            client.reset (listener.waitForNextConnection());
            ++opened;
        }

        recordedRequest request;

        while (! stopping && ! request.isComplete() && receive (*client, request.bytes))
        {}

        isKept = false;

        if (! request.bytes.empty()) // else the client had nothing to ask
            for (auto& step : replyTo (request))
                if (! stopping)
                    step();

        if (! isKept)
            client.reset();
    }
}
