#include "app/installationPaths.h"
#include "net/escapeText.h"
#include "net/storeAddress.h"
#include "net/storeService.h"
#include "tests/support/alertRobot.h"
#include "tests/support/scriptedServer.h"
#include "tests/support/temporaryInstallation.h"
#include <catch2/catch.hpp>

using namespace std::string_literals;

/** The service that the newest server is, for an account that is logged on. */
struct loggedOnService : storeService
{
    loggedOnService()
        : storeService (storeAddress(), ::installationFolder, token, enduser,
                        [] (const std::function<void()>& blockingCall) { blockingCall(); })
    {}

    const juce::String token{ "to ken" }, enduser{ "a+b@x.org" };
};

TEST_CASE ("form text is escaped byte by byte")
{
    CHECK (
        escapeFormText (juce::CharPointer_UTF8 ("Az09_-.*!'() \t\n~+&=%#@/:?,;\"<>[]\\^`{|}$\x7fä€🎸"))
        == "Az09_-.*!'()%20%09%0A%7E%2B%26%3D%25%23%40%2F%3A%3F%2C%3B%22%3C%3E%5B%5D%5C%5E%60%7B%7C%7D%24%7F"
           "%C3%A4%E2%82%AC%F0%9F%8E%B8");
}

TEST_CASE ("an account action sends its fields escaped as one, with the token, and reads the envelope")
{
    const std::array<const char*, 5> rows[] = {
        // key, value, fields, reply, error text
        { "list", "mediareview", "%26list%3Dmediareview", "<r/>", "" },
        { "list", "", "", "<r error='e' status='failure' message='m'/>", "e" },
        { "", "x", "", "<r error='' status='failure' message='m'/>", "m" },
        { "a", "b=&", "%26a%3Db%3D%26", "<r status='Failure' message='m' Error='e'/>", "" },
    };

    for (auto& [key, value, fields, text, error] : rows)
    {
        scriptedServer server;
        server.reply (okReply (text));
        juce::String errorText ("of an earlier request");
        const auto reply = loggedOnService().requestBin (errorText, key, value);
        REQUIRE (reply != nullptr);
        CHECK (errorText == error);

        const auto request = server.requests()[0];
        CHECK (request.line() == "POST /api/bin.cfm HTTP/1.1");
        CHECK (request.body() == "enduser%3Da%2Bb%40x.org" + std::string (fields));
        CHECK (request.header ("Authorization") == "to ken");
    }
}

TEST_CASE ("a token of 16 KB is one, and a longer one is none")
{
    scriptedServer server;

    for (const auto size : { 16384, 16385 })
    {
        server.reply (okReply ("<r><sessiontoken>" + juce::String::repeatedString ("x", size).toStdString()
                               + "</sessiontoken></r>"));
        const auto login = loggedOnService().requestLogin ("a", "b");
        REQUIRE (login.has_value());
        CHECK (login->token.length() == (size == 16384 ? 16384 : 0));
        CHECK (login->message == "Unspecified error.");
    }
}

TEST_CASE ("no reply, or an empty one, is reported and nothing is written")
{
    const temporaryInstallation installation;
    alertRobot robot;
    CHECK_FALSE (loggedOnService().requestLogin ({}, {}).has_value()); // no server yet

    scriptedServer server;
    server.reply().reply().reset().reply (replyWith ("500 x", "")).reply (okReply ("\xef\xbb\xbf"));
    server.reply (replyWith ("307 x", "Location: http://localhost:1/\r\n", "<r/>"));

    for (int i = 2; i <= 6; ++i)
    {
        juce::String errorText ("old");
        CHECK (loggedOnService().requestBin (errorText, {}, {}) == nullptr);
        CHECK (errorText.isEmpty());
        REQUIRE (robot.texts().size() == i);
        CHECK (robot.texts()[i - 1]
               == "No data returned from web server. Klangora needs an Internet connection to complete this "
                  "request.");
    }

    CHECK (installation.files().isEmpty());
}

/** The box that a reply which is not XML opens, and what it keeps in the installation folder. */
static juce::String boxFor (const std::string& reply)
{
    alertRobot robot;
    scriptedServer server;
    server.reply (reply);
    CHECK (loggedOnService().postToServer (juce::URL (server.origin() + "/x").withPOSTData ("a=b"), true,
                                           "token")
           == nullptr);
    return robot.texts().joinIntoString ("|");
}

TEST_CASE ("a reply that is not XML is kept as it came and reported")
{
    const std::string html ("<html>\n<body>\r\n<hr>\n\n\xc3\xa4\xf0\x9f\x8e\xb8</body></html>");
    const std::tuple<std::string, std::string, int> rows[] = {
        { okReply (html, "text/html"),
          "<html>\r\n<body>\r\n<hr>\r\n\r\n\xc3\xa4\xf0\x9f\x8e\xb8</body></html>", 37 },
        { replyWith ("500 x", "", " "), " ", 1 },
        { okReply ("\xef\xbb\xbfplain"), "plain", 5 },
        { okReply ("before\0after\n"s), "before\0after\r\n"s, 13 },
        { okReply ("\0<r/>"s), "\0<r/>"s, 5 },
        { okReply ("\xff\xfe"
                   "\xe4\0\0\0\x3c\xd8\xb8\xdf\x3c\xd8\n\0?"s),
          "\xc3\xa4\0\xf0\x9f\x8e\xb8\xef\xbf\xbd\r\n"s, 5 },
        { okReply ("\xfe\xff"
                   "\0a\x20\xac"s),
          "a\xe2\x82\xac", 2 },
        { okReply ("caf\xe9\r"), "caf\xc3\xa9\r", 5 },
        { "HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n3\r\nnot\r\n4\r\n XML\r\n0\r\n\r\n",
          "not XML", 7 },
    };
    const auto sentence = [] (int characters) {
        return "Malformed data returned from web server. Should be XML, but was " + juce::String (characters)
               + " bytes of text of a different type. The erroneous return has been saved as a file: ";
    };

    for (auto& [reply, dump, characters] : rows)
    {
        const temporaryInstallation installation;
        const auto box = boxFor (reply);
        REQUIRE (installation.files().size() == 1);
        const auto file = installation.folder.getChildFile (installation.files()[0]);
        const auto milliseconds = file.getFileName().retainCharacters ("0123456789");
        CHECK (box == sentence (characters) + file.getFullPathName());
        CHECK (file.getFileName() == "rigmartreturn (" + milliseconds + "ms).txt");
        CHECK (milliseconds.getIntValue() < 20000);

        juce::MemoryBlock bytes;
        file.loadFileAsData (bytes);
        CHECK (std::string (bytes.begin(), bytes.end()) == dump);
    }

    const temporaryInstallation installation;
    const auto missing = installation.folder.getChildFile ("missing").getFullPathName();

    for (auto& folder : { juce::String(), juce::String ("relative"), missing })
    {
        installationFolder = folder; // where nothing can be kept
        CHECK (boxFor (okReply ("plain")).startsWith (sentence (5)));
        CHECK (installation.files().isEmpty());
    }
}
