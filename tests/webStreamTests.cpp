#include "net/boundedReading.h"
#include "net/escapeFormText.h"
#include "net/webAddress.h"
#include "net/webStream.h"
#include "tests/support/scriptedServer.h"
#include <catch2/catch.hpp>
#include <limits>

#if JUCE_LINUX
    #include <cstdarg>
    #include <ctime>
    #include <curl/curl.h>
#endif

static const std::string formType ("application/x-www-form-urlencoded");

static webReply ask (const juce::String& address, const juce::String& postData = {},
                     const juce::String& token = {})
{
    auto reply = openWebStream ({ address, postData, token, {} });
    CHECK ((reply.stream != nullptr) == (reply.status > 0));
    CHECK ((reply.stream != nullptr || reply.headers.size() == 0));
    return reply;
}

static std::string bodyOf (const webReply& reply)
{
    REQUIRE (reply.stream != nullptr);
    const auto bytes = readAtMost (*reply.stream);
    return { bytes.begin(), bytes.end() };
}

TEST_CASE ("form text and addresses are escaped byte by byte")
{
    const auto all = juce::String (juce::CharPointer_UTF8 (
        "AZaz09_-.*!'() \t\r\n~+&=%#@/:?,;\"<>[]\\^`{|}$\x7f\xc3\xa4\xe2\x82\xac\xf0\x9f\x8e\xb8"));
    CHECK (
        escapeFormText (all)
        == "AZaz09_-.*!'()%20%09%0D%0A%7E%2B%26%3D%25%23%40%2F%3A%3F%2C%3B%22%3C%3E%5B%5D%5C%5E%60%7B%7C%7D"
           "%24%7F%C3%A4%E2%82%AC%F0%9F%8E%B8");
    CHECK (escapeAddressText (all)
           == "AZaz09_-.*!'()%20%09%0D%0A~+&=%#@/:?,;\"<>[]\\^`{|}$%7F%C3%A4%E2%82%AC%F0%9F%8E%B8");
}

TEST_CASE ("a location means what it means in a browser")
{
    const juce::String table[][3] = {
        // base, location, address
        { "https://a.b/c/d?e#f", "http://x/y?z#f", "http://x/y?z" },
        { "https://a.b/c/d?e", "//x:1/y", "https://x:1/y" },
        { "https://a.b/c/d?e/g", "/h?i/../j", "https://a.b/h?i/../j" },
        { "https://a.b/c/d?e/g", " h/i:j ", "https://a.b/c/h/i:j" },
        { "https://a.b/c/d", "mailto:x", "mailto:x" },
        { "https://a.b/c/d?e", "?f", "https://a.b/c/d?f" },
        { "https://a.b/c/d?e#f", "#g", "https://a.b/c/d?e" },
        { "https://a.b/c/d/e", ".././../../f/.", "https://a.b/f/" },
        { "https://a.b/c//d/", "..", "https://a.b/c//" },
        { "https://a.b?c", "d", "https://a.b/d" },
    };

    for (auto& row : table)
        CHECK (resolveAddress (row[0], row[1]) == row[2]);
}

TEST_CASE ("a redirect takes neither token nor body to strangers, and leads out of no encryption")
{
    struct row
    {
        const char *from, *postData, *location, *to; // to "" for no request
        int status;
        bool keepsToken, keepsBody;
    };

    const row table[] = {
        { "http://a/b?c", "", "d", "http://a/d", 301, true, false },
        { "https://a/b", "", "HTTPS://A:443/d", "HTTPS://A:443/d", 308, true, false },
        { "http://a/b", "", "https://a/b", "https://a/b", 307, false, false },
        { "http://a/b", "", "http://a:81/b", "http://a:81/b", 302, false, false },
        { "https://a/b", "", "https://a:80/b", "https://a:80/b", 302, false, false },
        { "http://a/b", "", "http://a@b/", "http://a@b/", 302, false, false },
        { "http://b/", "", "http://a\\@b/", "http://a\\@b/", 302, false, false },
        { "https://a/b", "", "http://a/b", "", 302, false, false },
        { "http://a/b", "", "ftp://a/b", "", 302, false, false },
        { "http://a/b", "", "file:///b", "", 302, false, false },
        { "http://a/b", "x=y", "/c", "http://a/c", 301, true, false },
        { "http://a/b", "x=y", "/c", "http://a/c", 302, true, false },
        { "http://a/b", "x=y", "//b/c", "http://b/c", 303, false, false },
        { "http://a/b", "x=y", "/c", "http://a/c", 307, true, true },
        { "http://a/b", "x=y", "/c", "http://a/c", 308, true, true },
        { "http://a/b", "x=y", "http://b/c", "", 307, false, false },
        { "http://a/b", "x=y", "https://a/b", "", 308, false, false },
    };

    for (auto& row : table)
    {
        INFO (row.from << " " << row.postData << " " << row.status << " " << row.location);
        const auto next = redirected ({ row.from, row.postData, "token", {} }, row.status, row.location);
        CHECK ((next ? next->address : juce::String()) == row.to);
        CHECK ((next && next->token == "token") == row.keepsToken);
        CHECK ((next && next->postData == "x=y") == row.keepsBody);
    }
}

TEST_CASE ("redirects are followed over the line: up to five, and not without a location")
{
    scriptedServer store, other;
    store.reply (replyWith ("307 x", "Location: 2\r\n", "moved"));
    store.reply (replyWith ("303 x", "Location: " + other.origin().toStdString() + "/a b\r\n"));
    other.reply (replyWith ("302 x", "Location: " + store.origin().toStdString() + "\r\n"));
    store.reply (replyWith ("302 x", "", "lost"));
    const auto reply = ask (store.origin() + "/items/1", "a=b", "token");
    CHECK (bodyOf (reply) == "lost");
    CHECK (reply.status == 302);

    const auto atStore = store.requests();
    CHECK (atStore[1].line() == "POST /items/2 HTTP/1.1");
    CHECK (atStore[1].body() == "a=b");
    CHECK (atStore[1].header ("Authorization") == "token");
    CHECK (other.requests()[0].line() == "GET /a%20b HTTP/1.1");
    CHECK (other.requests()[0].header ("Content-Type").empty());
    CHECK (other.requests()[0].header ("Authorization").empty());
    CHECK (atStore[2].header ("Authorization").empty()); // once dropped, for good

    for (auto redirects : { 5, 6 })
    {
        for (int i = 0; i < redirects; ++i)
            other.reply (replyWith ("302 x", "Location: /loop\r\n"));

        if (redirects == 5)
            other.reply (okReply ("body"));

        CHECK ((ask (other.origin()).stream != nullptr) == (redirects == 5));
    }
}

TEST_CASE ("a request goes out as it is told, with its token in one line")
{
    struct row
    {
        const char *path, *postData, *token, *line, *header;
    };

    const row table[] = {
        { "/a?b=1&flag&c=&d=%20+e#f", "", "", "GET /a?b=1&flag&c=&d=%20+e HTTP/1.1", "" },
        { "/a b\xc3\xa4", "", "abc", "GET /a%20b%C3%A4 HTTP/1.1", "abc" },
        { "/p", "a=b&c=%20", "", "POST /p HTTP/1.1", "" },
        { "/p", "a=b", " \r\n a\r\nX: y\t\x7f-content-type \n", "POST /p HTTP/1.1", "aX: y-content-type" },
        { "/p", "a=b", " \r\n\t", "POST /p HTTP/1.1", "" },
        { "", "", "", "GET / HTTP/1.1", "" },
    };

    scriptedServer server;

    for (auto& row : table)
    {
        INFO (row.path << " " << row.token);
        const std::string postData (row.postData), token (row.header);
        server.reply (okReply ("body"));
        CHECK (bodyOf (ask (server.origin() + juce::String::fromUTF8 (row.path), postData, row.token))
               == "body");

        const auto request = server.requests().back();
        CHECK (request.line() == row.line);
        CHECK (request.body() == postData);
        CHECK (request.header ("Content-Type") == (postData.empty() ? "" : formType));
        CHECK ((postData.empty() || request.header ("Content-Length") == std::to_string (postData.size())));
        CHECK (request.header ("Authorization") == token);
        CHECK ((request.bytes.find ("Authorization") == std::string::npos) == token.empty());
        CHECK (request.header ("X").empty());
    }
}

TEST_CASE ("headers are found wherever they stand and however they are written")
{
    for (std::string head :
         { "Content-Length: 4\r\nContent-Type: a/b\r\nDate: x",
           "Date: x\r\nContent-Type: a/b\r\nContent-Length: 4", "content-length: 4\r\nCONTENT-TYPE: a/b",
           "Content-Type:a/b\r\nContent-Length:  4 " })
    {
        INFO (head);
        scriptedServer server;
        server.reply ("HTTP/1.1 200 OK\r\n" + head + "\r\n\r\nbody");
        const auto reply = ask (server.origin());
        CHECK (bodyOf (reply) == "body");
        CHECK (reply.headers.getValue ("content-LENGTH", {}) == "4");
        CHECK (reply.headers.getValue ("Content-Type", {}) == "a/b");
    }
}

TEST_CASE ("a refusal has a stream, an address that nobody answers has none")
{
    scriptedServer server;

    for (auto* status : { "204 x", "401 x", "404 Not Found", "500 x" })
    {
        const std::string text (status[0] == '2' ? "" : "refused");
        server.reply (replyWith (status, "WWW-Authenticate: Basic\r\n", text));
        const auto reply = ask (server.origin(), "a=b");
        CHECK (reply.status == std::atoi (status));
        CHECK (bodyOf (reply) == text);
    }

    for (auto* address : { "", "http://127.0.0.1:1/", "http://no.such.host.invalid/", "file:///etc/passwd" })
        CHECK (ask (address).stream == nullptr);

    server.reply().reply().reset();
    CHECK (ask (server.origin(), "a=b").stream == nullptr);
    CHECK (ask (server.origin(), "a=b").stream == nullptr);

    server.reply ("HTTP/1.1 200 OK\r\nContent-Le").reset();
    const auto cutInHeaders = ask (server.origin(), "a=b"); // Wine makes an empty body of it
    CHECK ((cutInHeaders.stream == nullptr || bodyOf (cutInHeaders).empty()));
}

TEST_CASE ("a body is read to its end, however it comes and however it ends")
{
    struct row
    {
        const char *headers, *body, *text;
    };

    const row table[] = {
        { "Content-Length: 8", "whole", "whole" }, // cut
        { "Content-Length: 3", "whole", "who" },
        { "Content-Length: 9000000000000000000", "whole", "whole" },
        { "X: y", "to the end", "to the end" },
        { "Transfer-Encoding: chunked", "5\r\nwhole\r\n1\r\n!\r\n0\r\n\r\n", "whole!" },
        { "Transfer-Encoding: chunked\r\nContent-Length: 50", "5\r\nwhole\r\n0\r\n\r\n", "whole" },
        { "Transfer-Encoding: chunked", "5\r\nwhole\r\n9\r\ncut", "wholecut" },
    };

    for (auto& row : table)
        for (auto resets : { false, true })
        {
            INFO (row.headers << (resets ? ", reset" : ""));
            scriptedServer server;
            server.reply ("HTTP/1.1 200 OK\r\n" + std::string (row.headers) + "\r\n\r\n").pause (20);
            server.send (row.body).pause (100);

            if (resets)
                server.reset();

            CHECK (bodyOf (ask (server.origin())) == row.text);
        }
}

/** Never ends. */
struct endlessStream : juce::InputStream
{
    juce::int64 getTotalLength() override { return std::numeric_limits<juce::int64>::max(); }
    juce::int64 getPosition() override { return 0; }
    bool setPosition (juce::int64) override { return false; }
    bool isExhausted() override { return false; }
    int read (void*, int size) override { return size; }
};

TEST_CASE ("reading stops where it is told, and at 64 MB")
{
    endlessStream endless;
    CHECK (readAtMost (endless, 100).getSize() == 100);
    CHECK (readAtMost (endless, 65537).getSize() == 65537);
    CHECK (readAtMost (endless).getSize() == 67108864);
}

#if JUCE_LINUX
// The linker's --wrap leads the calls of these functions through here.
static bool hurries;                                                  // time limits become one second
static long connectTimeOut, silenceTimeOut, slowestSpeed, longestNap; // in s, s, bytes per second and ms

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

        for (auto [limit, seen] : { std::pair (CURLOPT_CONNECTTIMEOUT, &connectTimeOut),
                                    std::pair (CURLOPT_LOW_SPEED_TIME, &silenceTimeOut),
                                    std::pair (CURLOPT_LOW_SPEED_LIMIT, &slowestSpeed) })
            if (option == limit)
                *seen = (long) value;

        if (hurries && (option == CURLOPT_CONNECTTIMEOUT || option == CURLOPT_LOW_SPEED_TIME))
            return __real_curl_easy_setopt (curl, option, 1L);

        return __real_curl_easy_setopt (curl, option, value);
    }

    int __wrap_nanosleep (const timespec* duration, timespec* remaining)
    {
        longestNap = std::max (longestNap, (long) duration->tv_sec * 1000 + duration->tv_nsec / 1000000);
        return __real_nanosleep (duration, remaining);
    }
}
// NOLINTEND(bugprone-reserved-identifier, readability-identifier-naming, clang-analyzer-valist.Uninitialized)

TEST_CASE ("a server that falls silent ends the request after 30 seconds, which pass as one here")
{
    scriptedServer server;
    server.reply (okReply ("body"));
    CHECK (bodyOf (ask (server.origin())) == "body");
    REQUIRE (connectTimeOut == 30);
    REQUIRE (silenceTimeOut == 30);
    REQUIRE (slowestSpeed > 0);

    hurries = true;
    server.reply().stall();
    CHECK (ask (server.origin(), "a=b").stream == nullptr);
    server.reply ("HTTP/1.1 200 OK\r\nContent-Length: 50\r\n\r\nhalf").stall();
    CHECK (bodyOf (ask (server.origin(), "a=b")) == "half");
    hurries = false;
}

TEST_CASE ("a request never sleeps before it looks at the network")
{
    scriptedServer server;
    server.reply (okReply ("body"));
    longestNap = 0;
    CHECK (bodyOf (ask (server.origin())) == "body");
    CHECK (longestNap < 50);
}
#endif
