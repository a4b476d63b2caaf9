#include "base/boundedReading.h"
#include "net/webAddress.h"
#include "net/webStream.h"
#include "tests/support/scriptedServer.h"
#include <catch2/catch.hpp>
#include <cstring>

#if JUCE_LINUX
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
    const auto bytes = readAtMost (*reply.stream);
    return { bytes.begin(), bytes.end() };
}

TEST_CASE ("a redirect leads where a browser goes, token and body not to strangers, and stays encrypted")
{
    const struct
    {
        const char *from, *postData, *location, *to; // to "" for no request
        int status;
        bool keepsToken, keepsBody;
    } table[] = {
        { "https://a.b/c/d?e#f", "", "http://x/y?z#f", "", 301, false, false },
        { "https://a.b/c/d?e/g", "", "/h?i/../j", "https://a.b/h?i/../j", 302, true, false },
        { "https://a.b/c/d/e", "", ".././../../f/.", "https://a.b/f/", 307, true, false },
        { "https://a/b", "", "HTTPS://A:443/d", "HTTPS://A:443/d", 308, true, false },
        { "http://a/b", "", "file:///b", "", 302, false, false },
        { "http://a/b", "x=y", "/c", "http://a/c", 307, true, true },
        { "http://a/b", "x=y", "http://b/c", "", 307, false, false },
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

TEST_CASE ("a request goes out as it is told, with its token in one line")
{
    const struct
    {
        const char *path, *postData, *token, *line, *header;
    } table[] = {
        { "/a?b=1&flag&c=&d=%20+e#f", "", "", "GET /a?b=1&flag&c=&d=%20+e HTTP/1.1", "" },
        { "/!a b\x7f~\xc3\xa4", "", "abc", "GET /!a%20b%7F~%C3%A4 HTTP/1.1", "abc" },
        { "", "a=b", " \r\n a\r\nX: y\t\x7f-content-type \n", "POST / HTTP/1.1", "aX: y-content-type" },
    };

    scriptedServer server;

    for (auto& row : table)
    {
        INFO (row.path << " " << row.token);
        const std::string postData (row.postData), token (row.header);
        server.reply (okReply ("body"));
        ask (server.origin() + juce::String::fromUTF8 (row.path), postData, row.token);

        const auto request = server.requests().back();
        CHECK (request.line() == row.line);
        CHECK (request.body() == postData);
        CHECK (request.header ("Content-Type")
               == (postData.empty() ? "" : "application/x-www-form-urlencoded"));
        CHECK (request.header ("Authorization") == token);
        CHECK ((request.bytes.find ("Authorization") == std::string::npos) == token.empty());
    }
}

TEST_CASE ("nothing but the web is spoken to, and a reply cut in its headers is none")
{
    CHECK (ask ("file:///etc/passwd").stream == nullptr);
    CHECK (ask ("http://no.such.host.invalid/").stream == nullptr);

    scriptedServer server;
    server.reply ("HTTP/1.1 200 OK\r\nContent-Le").reset();
    const auto cut = ask (server.origin(), "a=b"); // Wine makes an empty body of it
    CHECK ((cut.stream == nullptr || bodyOf (cut).empty()));
}

TEST_CASE ("status, headers and body are read to their end, however they come")
{
    const struct
    {
        const char *head, *body, *text;
    } table[] = {
        { "200 OK\r\nContent-Type: a/b\r\nContent-Length: 8", "whole", "whole" }, // cut
        { "200\r\ncontent-length:3\r\nCONTENT-TYPE:  a/b ", "whole", "who" },
        { "500 x\r\nContent-Length: 9000000000000000000\r\nX: y\r\nContent-Type:a/b", "whole", "whole" },
        { "404 x\r\ncontent-type: a/b\r\nTransfer-Encoding: chunked\r\nContent-Length: 50",
          "5\r\nwhole\r\n1\r\n!\r\n0\r\n\r\n", "whole!" },
    };

    for (auto& row : table)
        for (auto resets : { false, true })
        {
            INFO (row.head << (resets ? ", reset" : ""));
            std::atomic<bool> isRead{ false };
            scriptedServer server;
            server.reply ("HTTP/1.1 " + std::string (row.head) + "\r\n\r\n").send (row.body);
            server.waitUntil ([&] { return isRead.load(); });

            if (resets)
                server.reset();

            const auto reply = ask (server.origin(), resets ? "" : "a=b");
            REQUIRE (reply.status == std::atoi (row.head));
            CHECK (reply.headers.getValue ("Content-TYPE", {}) == "a/b");
            const auto body = readAtMost (*reply.stream, std::strlen (row.text));
            isRead = true;
            CHECK (std::string (body.begin(), body.end()) + bodyOf (reply) == row.text);
        }
}

TEST_CASE ("reading stops where it is told, and at 64 MB")
{
    juce::MemoryInputStream stream (juce::MemoryBlock (67108864 + 65538, true));
    CHECK (readAtMost (stream, 65537).getSize() == 65537);
    CHECK (readAtMost (stream).getSize() == 67108864);
}

#if JUCE_LINUX
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

TEST_CASE ("a request never sleeps, and a server silent for 30 seconds, which pass as one here, ends it")
{
    scriptedServer server;
    server.reply (okReply ("body"));
    longestNap = 0;
    CHECK (bodyOf (ask (server.origin())) == "body");
    CHECK (longestNap < 50);
    CHECK (options[CURLOPT_CONNECTTIMEOUT] == 30);
    REQUIRE (options[CURLOPT_LOW_SPEED_TIME] == 30);
    REQUIRE (options[CURLOPT_LOW_SPEED_LIMIT] > 0);

    hurries = true;
    server.reply().waitUntil();
    CHECK (ask (server.origin(), "a=b").stream == nullptr);
    server.reply ("HTTP/1.1 200 OK\r\nContent-Length: 50\r\n\r\nhalf").waitUntil();
    CHECK (bodyOf (ask (server.origin(), "a=b")) == "half");
    hurries = false;
}
#endif
