#include "base/boundedReading.h"
#include "net/webStream.h"
#include "tests/support/dataTable.h"
#include "tests/support/script.h"
#include <catch2/catch.hpp>

#if JUCE_LINUX
    #include <csignal>
    #include <cstdarg>
    #include <ctime>
    #include <curl/curl.h>
    #include <map>
#endif

static webReply ask (const juce::String& address, const juce::String& postData = {},
                     const juce::String& token = {})
{
    return openWebStream ({ address, postData, token, {} });
}

static std::string bodyOf (const webReply& reply)
{
    REQUIRE (reply.stream != nullptr);
    return readAtMost (*reply.stream).toString().toStdString();
}

/** What the TLS server of trustTest.sh says under a name; empty without a stream. */
static juce::String tlsServerText (const juce::String& host)
{
    const auto port = juce::SystemStats::getEnvironmentVariable ("TEST_TLS_PORT", {});
    REQUIRE (port.isNotEmpty());
    const auto reply = ask ("https://" + host + ":" + port + "/reply");
    return reply.stream == nullptr ? juce::String() : readAtMost (*reply.stream).toString();
}

// These two are hidden, so that only the script runs them.
TEST_CASE ("a TLS server that the system does not trust is not spoken to", "[.untrusted]")
{
    CHECK (tlsServerText ("localhost").isEmpty());
}

TEST_CASE ("a TLS server that the system trusts answers, under its own name only", "[.trusted]")
{
    CHECK (tlsServerText ("127.0.0.1").isEmpty());
    CHECK (tlsServerText ("localhost") == "trusted");
}

TEST_CASE ("nothing but the web is spoken to")
{
    CHECK (ask ("file:///etc/passwd").stream == nullptr);
}

TEST_CASE ("the head is there before the body, and what has arrived is read without waiting for more")
{
    std::atomic<bool> isOpened{ false }, isRead{ false };
    scriptedServer server;
    server.reply ("HTTP/1.1 200 a: b\r\nContent-Length:8\r\n\r\n");
    server.waitUntil ([&] { return isOpened.load(); }).send ("half");
    server.waitUntil ([&] { return isRead.load(); }).send ("rest");

    const auto reply = ask (server.origin());
    CHECK (reply.headers["Content-Length"] == "8");
    REQUIRE (reply.stream != nullptr);
    char bytes[10];
#if ! JUCE_WINDOWS // where a read waits
    CHECK (reply.stream->readSome (bytes, 10, 20) == 0);
    CHECK_FALSE (reply.stream->isExhausted());
#endif
    isOpened = true;
    CHECK (std::string (bytes, (size_t) reply.stream->readSome (bytes, 10, 20000)) == "half");
    isRead = true;
    CHECK (bodyOf (reply) == "rest");
    CHECK (reply.stream->readSome (bytes, 10, 20000) == 0);
    CHECK (reply.stream->isExhausted());
}

namespace
{
/** A client of the server. */
struct client : scene
{
    client()
    {
        acts["ask"] = [this] (auto& a) {
            const auto text = [&] (int column) { return juce::String (expanded (a[column].toStdString())); };
            const auto reply = ask (server.origin() + text (0), text (1), text (2));
            events.add (reply.stream != nullptr ? juce::String (bodyOf (reply)).quoted() : "no reply");
            events.add ("content type: " + server.requests().back().header ("Content-Type"));
        };
        acts["ask, and give up half way"] = [this] (auto& a) {
            events.add ("status " + juce::String (ask (server.origin() + a[0]).status));
        };
    }

    juce::StringArray look() override
    {
        auto lines = scene::look();
        lines.add ("connections: " + juce::String (server.connections()));
        return lines;
    }
};
}

TEST_CASE ("connections are kept, and given up, as the script says")
{
    playScript ("connection-script", [] { return std::make_unique<client>(); });
}

#if JUCE_LINUX // elsewhere the system's services hand out what is there
TEST_CASE ("what a fast server sends stays with it until there is room, and comes whole")
{
    std::string body (32 << 20, ' '), received (body.size(), ' ');
    std::generate (body.begin(), body.end(), [i = 0]() mutable { return (char) (i++ % 251); });
    scriptedServer server;
    server.reply (okReply (body));

    const auto reply = ask (server.origin());
    size_t size = 0;
    int most = 0;

    while (! reply.stream->isExhausted() && size < received.size())
    {
        // Of what came with one byte, the rest is what was taken beyond the room for it.
        size += (size_t) reply.stream->readSome (&received[size], 1, 20000);
        const auto rest = reply.stream->readSome (&received[size], (int) (received.size() - size), 20000);
        most = juce::jmax (most, rest);
        size += (size_t) rest;
    }

    CHECK (most <= 512 << 10);
    CHECK (size == body.size());
    CHECK ((received == body)); // not to be printed
}

// The linker's --wrap leads the calls of these functions through here.
static bool hurries;                       // time limits become one second
static std::map<CURLoption, long> options; // as they were set last
static long longestNap;                    // in ms

// NOLINTBEGIN(bugprone-reserved-identifier, readability-identifier-naming, clang-analyzer-valist.Uninitialized)
extern "C"
{
    CURLcode __real_curl_easy_setopt (CURL* curl, CURLoption option, ...);
    int __real_nanosleep (const timespec* duration, timespec* remaining);

    CURLcode __wrap_curl_easy_setopt (CURL* curl, CURLoption option, ...)
    {
        va_list arguments;
        va_start (arguments, option);
        auto* value = va_arg (arguments, void*); // numbers are as wide
        va_end (arguments);
        options[option] = (long) value;

        const auto isLimit = option == CURLOPT_CONNECTTIMEOUT || option == CURLOPT_LOW_SPEED_TIME;
        return hurries && isLimit ? __real_curl_easy_setopt (curl, option, 1L)
                                  : __real_curl_easy_setopt (curl, option, value);
    }

    int __wrap_nanosleep (const timespec* duration, timespec* remaining)
    {
        longestNap = std::max (longestNap, (long) duration->tv_sec * 1000 + duration->tv_nsec / 1000000);
        return __real_nanosleep (duration, remaining);
    }
}
// NOLINTEND(bugprone-reserved-identifier, readability-identifier-naming, clang-analyzer-valist.Uninitialized)

TEST_CASE ("a request never sleeps, and may be silent for 30 seconds")
{
    scriptedServer server;
    server.reply (okReply ("body"));
    longestNap = 0;
    CHECK (bodyOf (ask (server.origin())) == "body");
    CHECK (longestNap < 50);
    CHECK (options[CURLOPT_CONNECTTIMEOUT] == 30);
    CHECK (options[CURLOPT_LOW_SPEED_TIME] == 30);
    CHECK (options[CURLOPT_LOW_SPEED_LIMIT] > 0);
}

TEST_CASE ("a silent server ends a request, whatever signals interrupt it")
{
    const juce::ScopedValueSetter<bool> hurrying (hurries, true, false);
    struct sigaction interrupting = {}; // as the framework's own handler of Ctrl+C interrupts
    interrupting.sa_handler = [] (int) {};
    sigaction (SIGUSR1, &interrupting, nullptr);

    scriptedServer server;
    server.reply().waitUntil ([waiting = pthread_self()] { return pthread_kill (waiting, SIGUSR1) != 0; });
    CHECK (ask (server.origin(), "a=b").stream == nullptr);
    server.reply ("HTTP/1.1 200 OK\r\nContent-Length: 50\r\n\r\nhalf").waitUntil();
    CHECK (bodyOf (ask (server.origin(), "a=b")) == "half");
}
#endif
