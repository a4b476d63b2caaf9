#include "net/rememberedLogin.h"
#include "tests/support/dataTable.h"
#include "tests/support/temporaryInstallation.h"
#include <catch2/catch.hpp>

TEST_CASE_METHOD (temporaryInstallation, "a login that would be too long to load is not saved")
{
    const rememberedLogin remembered (path);
    remembered.save ({ "short", juce::String::repeatedString ("p", 60000) });
    remembered.save ({ "long", juce::String::repeatedString ("p", 1000000) });
    CHECK (remembered.load()->address == "short");
}

TEST_CASE_METHOD (temporaryInstallation, "whatever stands in the file, loading gives two texts or nothing")
{
    checkTable ("rememberedLogin", [&] (auto& columns) {
        write ("rememberme.txt", columns[0]);
        const auto login = rememberedLogin (path).load();
        return login ? (login->address + ", " + login->password).toStdString() : "none";
    });
}
