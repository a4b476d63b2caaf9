#include "net/storeService.h"
#include "tests/support/alertRobot.h"
#include "tests/support/dataTable.h"
#include "tests/support/loggedOnService.h"
#include "tests/support/scriptedServer.h"
#include "tests/support/temporaryInstallation.h"
#include <catch2/catch.hpp>

/** The box that a reply which is not XML opens. */
static juce::String boxFor (const std::string& reply)
{
    alertRobot robot;
    scriptedServer server;
    server.reply (okReply (reply));
    CHECK_FALSE (loggedOnService (server).requestLogin ({}, {}).has_value());
    return robot.texts().joinIntoString ("; ");
}

static const juce::String
    malformed ("Malformed data returned from web server. Should be XML, but was 5 bytes "
               "of text of a different type. The erroneous return has been saved as a "
               "file: ");

TEST_CASE ("a reply that is not XML is reported with its length in characters and its file")
{
    const temporaryInstallation installation;
    const auto box = boxFor ("plän\xe9");
    const auto file = installation.folder.getChildFile (installation.files()[0]);
    const auto milliseconds = file.getFileName().retainCharacters ("0123456789");
    CHECK (file.getFileName() == "rigmartreturn (" + milliseconds + "ms).txt");
    CHECK (milliseconds.getIntValue() < 20000);
    CHECK (box == malformed + file.getFullPathName());
}

TEST_CASE ("a reply that is not XML is kept whole, as UTF-8 and with the line ends of Windows")
{
    checkTable ("dumps", [] (auto& columns) {
        const temporaryInstallation installation;
        boxFor (columns[0]);
        juce::MemoryBlock bytes;
        installation.folder.getChildFile (installation.files()[0]).loadFileAsData (bytes);
        return std::string (bytes.begin(), bytes.end());
    });
}

TEST_CASE ("a reply that is not XML is reported where it cannot be kept")
{
    const temporaryInstallation installation;
    const auto missing = installation.folder.getChildFile ("missing").getFullPathName();

    for (auto& folder : { juce::String(), juce::String ("relative"), missing })
    {
        CAPTURE (folder);
        installationFolder = folder;
        CHECK (boxFor ("plain").startsWith (malformed));
        CHECK (installation.files().isEmpty());
    }
}
