#include "app/installationPaths.h"
#include "net/storeService.h"
#include "tests/support/alertRobot.h"
#include "tests/support/scriptedServer.h"
#include "tests/support/temporaryInstallation.h"
#include <catch2/catch.hpp>

static const juce::String noData (
    "No data returned from web server. Klangora needs an Internet connection to complete this request.");

static juce::String fromUtf8 (const char* bytes)
{
    return juce::String (juce::CharPointer_UTF8 (bytes));
}

TEST_CASE ("a log-on and a new account send their two fields, and never a token")
{
    struct row
    {
        const char *address, *password, *fields;
    };

    const row table[] = {
        { "me@x.org", "secret", "=me%40x.org&password=secret" },
        { "a+b@x", "&=+%~ *!'()", "=a%2Bb%40x&password=%26%3D%2B%25%7E%20*!'()" },
        { "\xc3\xa4@x", "\xf0\x9f\x8e\xb8", "=%C3%A4%40x&password=%F0%9F%8E%B8" },
        { "", "", "=&password=" },
    };

    scriptedServer server;

    for (auto& row : table)
    {
        const auto address = fromUtf8 (row.address), password = fromUtf8 (row.password);
        server.reply (okReply ("<r/>")).reply (okReply ("<r/>"));
        CHECK (requestLogin (address, password).has_value());
        CHECK (requestCreation (address, password).has_value());

        const auto requests = server.requests();
        const auto &login = requests[requests.size() - 2], &creation = requests.back();
        CHECK (login.line() == "POST /api/auth.cfm HTTP/1.1");
        CHECK (login.body() == "emailaddr" + std::string (row.fields));
        CHECK (creation.line() == "POST /api/register.cfm HTTP/1.1");
        CHECK (creation.body() == "email" + std::string (row.fields));
        CHECK ((login.bytes + creation.bytes).find ("Authorization") == std::string::npos);
    }
}

TEST_CASE ("the fields of login and creation replies are elements of exactly their names")
{
    struct row
    {
        const char *reply, *token, *message, *status;
    };

    const row table[] = {
        { "<r><sessiontoken>abc</sessiontoken><message>hi</message><status>success</status></r>", "abc", "hi",
          "success" },
        { "<r><message>wrong <b>password</b></message><sessiontoken/></r>", "", "wrong password",
          "Unspecified error." },
        { "<r/>", "", "Unspecified error.", "Unspecified error." },
        { "<r><Message>x</Message><SessionToken>x</SessionToken><STATUS>x</STATUS></r>", "",
          "Unspecified error.", "Unspecified error." },
        { "<r><message/><status> success</status><status>2</status></r>", "", "", " success" },
        { "<r><sessiontoken>\n a&#13;&#10;b </sessiontoken></r>", "\n a\r\nb ", "Unspecified error.",
          "Unspecified error." },
        { "<r><x><sessiontoken>deep</sessiontoken></x>trailing</r> text", "", "Unspecified error.",
          "Unspecified error." },
    };

    for (auto& row : table)
    {
        INFO (row.reply);
        scriptedServer server;
        server.reply (okReply (row.reply)).reply (okReply (row.reply));
        const auto login = requestLogin ("a", "b");
        const auto creation = requestCreation ("a", "b");
        REQUIRE ((login && creation));
        CHECK (login->token == row.token);
        CHECK (login->message == row.message);
        CHECK (creation->message == row.message);
        CHECK (creation->status == row.status);
    }
}

TEST_CASE ("an account action sends its fields escaped as one, with the token, and reads the envelope")
{
    struct row
    {
        const char *key, *value, *body, *reply, *errorText;
    };

    const row table[] = {
        { "list", "mediareview", "enduser%3Da%2Bb%40x.org%26list%3Dmediareview", "<r/>", "" },
        { "list", "", "enduser%3Da%2Bb%40x.org", "<r error='e' status='failure' message='m'/>", "e" },
        { "", "x", "enduser%3Da%2Bb%40x.org", "<r error='' status='failure' message='m'/>", "m" },
        { "a", "b=&", "enduser%3Da%2Bb%40x.org%26a%3Db%3D%26", "<r status='failure'/>", "" },
        { "a", "b", "enduser%3Da%2Bb%40x.org%26a%3Db", "<r status='Failure' message='m' Error='e'/>", "" },
    };

    for (auto& row : table)
    {
        INFO (row.reply);
        scriptedServer server;
        server.reply (okReply (row.reply));
        juce::String errorText ("of an earlier request");
        const auto reply = requestBin (errorText, row.key, row.value, "a+b@x.org", "to ken");
        REQUIRE (reply != nullptr);
        CHECK (reply->getTagName() == "r");
        CHECK (errorText == row.errorText);

        const auto request = server.requests()[0];
        CHECK (request.line() == "POST /api/bin.cfm HTTP/1.1");
        CHECK (request.body() == row.body);
        CHECK (request.header ("Authorization") == "to ken");
    }
}

TEST_CASE ("no reply, or an empty one, is reported and nothing is written")
{
    const temporaryInstallation installation;
    alertRobot robot;
    CHECK_FALSE (requestLogin ({}, {}).has_value()); // no server yet

    scriptedServer server;
    server.reply().reply().reset();
    server.reply (okReply ("")).reply (replyWith ("500 x", "")).reply (okReply ("\xef\xbb\xbf"));
    server.reply (okReply (std::string ("\0<r/>", 5)));
    server.reply (replyWith ("307 x", "Location: http://localhost:1/\r\n", "<r/>"));

    for (size_t i = 2; i <= 8; ++i)
    {
        juce::String errorText ("old");
        CHECK (requestBin (errorText, {}, {}, {}, {}) == nullptr);
        CHECK (errorText.isEmpty());
        REQUIRE (robot.seen().size() == i);
        CHECK (robot.seen().back().text == noData);
        CHECK (robot.seen().back().title == "Klangora 4");
    }

    CHECK (installation.files().isEmpty());
}

/** What is in the one file of the installation, the dump; its name with the milliseconds as N, and the box. */
struct dumpSeen
{
    std::string bytes;
    juce::String name, box;
};

static dumpSeen dumpOf (const std::string& reply)
{
    const temporaryInstallation installation;
    alertRobot robot;
    scriptedServer server;
    server.reply().pause (30).send (reply);
    CHECK_FALSE (requestCreation ("me", "secret").has_value());

    REQUIRE (installation.files().size() == 1);
    REQUIRE (robot.seen().size() == 1);
    const auto file = installation.folder.getChildFile (installation.files()[0]);
    const auto milliseconds = file.getFileName().retainCharacters ("0123456789");
    CHECK (milliseconds.getIntValue() >= 30);
    CHECK (milliseconds.getIntValue() < 20000);

    juce::MemoryBlock bytes;
    file.loadFileAsData (bytes);
    return { { bytes.begin(), bytes.end() },
             file.getFileName().replace (milliseconds, "N"),
             robot.texts()[0].replace (file.getFullPathName(), "PATH") };
}

TEST_CASE ("a reply that is not XML is kept as it came and reported")
{
    struct row
    {
        std::string reply, dump;
        int characters;
    };

    const std::string html ("<html>\n<body>\r\n<hr>\n\n\xc3\xa4\xf0\x9f\x8e\xb8</body></html>");
    const row table[] = {
        { okReply (html, "text/html"),
          "<html>\r\n<body>\r\n<hr>\r\n\r\n\xc3\xa4\xf0\x9f\x8e\xb8</body></html>", 37 },
        { replyWith ("500 x", "", " "), " ", 1 },
        { okReply ("\xef\xbb\xbfplain"), "plain", 5 },
        { okReply (std::string ("before\0after", 12)), "before", 6 },
        { okReply ("caf\xe9\r"), "caf\xc3\xa9\r", 5 },
        { okReply ("<a>&#x"), "<a>&#x", 6 },
        { "HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n3\r\nnot\r\n4\r\n XML\r\n0\r\n\r\n",
          "not XML", 7 },
    };

    for (auto& row : table)
    {
        INFO (row.dump);
        const auto seen = dumpOf (row.reply);
        CHECK (seen.bytes == row.dump);
        CHECK (seen.name == "rigmartreturn (Nms).txt");
        CHECK (seen.box
               == "Malformed data returned from web server. Should be XML, but was "
                      + juce::String (row.characters)
                      + " bytes of text of a different type. The erroneous return has been saved as a file: "
                        "PATH");
    }
}

TEST_CASE ("without an installation folder nothing is written, and the message is shown all the same")
{
    const temporaryInstallation installation;

    for (auto& folder : { juce::String(), juce::String ("relative"),
                          installation.folder.getChildFile ("missing").getFullPathName() })
    {
        installationFolder = folder;
        alertRobot robot;
        scriptedServer server;
        server.reply (okReply ("plain"));
        CHECK (postToServer ("/x", "a=b", "token") == nullptr);
        CHECK (server.requests()[0].header ("Authorization") == "token");
        REQUIRE (robot.seen().size() == 1);
        CHECK (robot.texts()[0].contains ("was 5 bytes of text"));
        CHECK_FALSE (robot.texts()[0].contains ("token"));
        CHECK (installation.files().isEmpty());
    }
}
