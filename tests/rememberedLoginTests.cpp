#include "net/rememberedLogin.h"
#include "tests/support/dataTable.h"
#include "tests/support/temporaryInstallation.h"
#include <catch2/catch.hpp>

TEST_CASE ("a remembered login replaces the file by two scrambled lines")
{
    const temporaryInstallation installation;
    const auto file = installation.write ("rememberme.txt", "something old, open to all");
    rememberedLogin (installation.folder.getFullPathName()).save ({ "me@example.org", "secret&1" });

    // Scrambled by another library's Blowfish.
    CHECK (file.loadFileAsString() == "16.VBCyImenEXYEEhUHdWTFNB\r\n16.HBy6dSNsNccdfamSrJRFNB\r\n");
    CHECK (installation.files() == juce::StringArray{ "rememberme.txt" });
}

TEST_CASE ("a login that would be too long to load is not saved")
{
    const temporaryInstallation installation;
    const rememberedLogin remembered (installation.folder.getFullPathName());
    remembered.save ({ "short", juce::String::repeatedString ("p", 60000) });
    remembered.save ({ "long", juce::String::repeatedString ("p", 1000000) });
    CHECK (remembered.load()->address == "short");
}

TEST_CASE ("without an absolute folder there is no remembered login")
{
    CHECK_FALSE (rememberedLogin ("relative").load().has_value());
}

TEST_CASE ("whatever stands in the file, loading gives two texts or nothing")
{
    const temporaryInstallation installation;

    checkTable ("rememberedLogin", [&] (auto& columns) {
        installation.write ("rememberme.txt", juce::MemoryBlock (columns[0].data(), columns[0].size()));
        const auto login = rememberedLogin (installation.folder.getFullPathName()).load();
        return login ? (login->address + ", " + login->password).toStdString() : "none";
    });
}
