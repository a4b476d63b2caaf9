#pragma once

#include <atomic>
#include <functional>
#include <juce_core/juce_core.h>
#include <string>
#include <thread>
#include <vector>

/** A request as it came over the line, byte by byte. */
struct recordedRequest
{
    std::string bytes;

    std::string head() const { return bytes.substr (0, bytes.find ("\r\n\r\n")); }
    std::string body() const { return bytes.substr (std::min (bytes.size(), head().size() + 4)); }

    /** The first line, such as "POST /api/auth.cfm HTTP/1.1". */
    std::string line() const { return bytes.substr (0, bytes.find ("\r\n")); }

    /** What follows "name: ", whatever the case of the name; "" without such a line, joined with "|" when there
        are several. */
    std::string header (const std::string& name) const;

    bool isComplete() const;
};

/** An HTTP server on the loopback interface that plays exactly the bytes it is told, right or wrong, and keeps
    the requests. It takes one connection after the other; every request is answered with the next reply of the
    script:

        scriptedServer server;
        server.reply (okReply ("<a/>"));
        server.reply ("HTTP/1.1 200 OK\r\n").send ("Content-Length: 9\r\n\r\nhalf").reset();

    storeAddress() is the origin of one that was made while there was no other. */
class scriptedServer
{
public:
    /** Asked again and again on the server's thread. */
    using condition = std::function<bool()>;

    scriptedServer();

    /** Fails the test unless there were as many requests as replies. */
    ~scriptedServer();

    /** "http://127.0.0.1:" and the port. */
    const juce::String& origin() const { return address; }

    /** Appends a reply to the script: these bytes, then the end of the connection unless it is kept. What follows,
        up to the next reply(), adds to it. */
    scriptedServer& reply (const std::string& bytes = {});
    scriptedServer& send (const std::string& bytes);

    /** Silence until this holds or the client hangs up; without a condition, until then. */
    scriptedServer& waitUntil (const condition& = [] { return false; });

    /** Silence for a while. */
    scriptedServer& pause (int ms)
    {
        return add ([ms] { juce::Thread::sleep (ms); });
    }

    /** The connection ends torn down (RST) instead of closed (FIN). */
    scriptedServer& reset();

    /** The connection waits for another request. A client may open a new one instead. */
    scriptedServer& keep()
    {
        return add ([this] { isKept = true; });
    }

    /** The requests so far. */
    std::vector<recordedRequest> requests() const
    {
        const juce::ScopedLock guard (lock);
        return received;
    }

    /** How many connections there were so far. */
    int connections() const { return opened; }

private:
    using script = std::vector<std::function<void()>>;

    void run();
    script replyTo (const recordedRequest& request);
    scriptedServer& add (const script::value_type&);

    juce::StreamingSocket listener;
    juce::String address;

    std::unique_ptr<juce::StreamingSocket> client; // used by the thread alone
    bool isKept = false;                           // so is this
    juce::CriticalSection lock;                    // guards what follows up to the flag
    std::vector<script> replies;
    std::vector<recordedRequest> received;
    std::atomic<bool> stopping{ false };
    std::atomic<int> opened{ 0 };

    std::thread thread;
};

/** A well-formed "200 OK" that ends the connection. */
std::string okReply (const std::string& body);
