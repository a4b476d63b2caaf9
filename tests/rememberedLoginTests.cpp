#include "app/installationPaths.h"
#include "net/rememberedLogin.h"
#include "tests/support/temporaryInstallation.h"
#include <catch2/catch.hpp>

#if ! JUCE_WINDOWS
    #include <sys/stat.h>
#endif

using login = rememberedLogin::login;

TEST_CASE ("a remembered login is two scrambled lines that only their owner can read")
{
    temporaryInstallation installation;
    const rememberedLogin remembered (installationFolder);
    const auto file = installation.write ("rememberme.txt", "something old, open to all");
    installation.write ("rigmart.tmp", "left behind by a program that was killed");

    // Scrambled by another library's Blowfish.
    remembered.save ({ "me@example.org", "secret&1" });
    CHECK (file.loadFileAsString() == "16.VBCyImenEXYEEhUHdWTFNB\r\n16.HBy6dSNsNccdfamSrJRFNB\r\n");
    CHECK (installation.files() == juce::StringArray{ "rememberme.txt" });

#if ! JUCE_WINDOWS
    struct stat status = {};
    REQUIRE (::stat (file.getFullPathName().toRawUTF8(), &status) == 0);
    CHECK ((status.st_mode & 0777) == 0600);
#endif

    remembered.forget();
    remembered.forget();
    CHECK_FALSE (file.exists());

    // What cannot be written leaves the old file.
    remembered.save ({ "old", "login" });
    installation.write ("rigmart.tmp/full", "a folder where the temporary file would be");
    remembered.save ({ "new", "login" });
    CHECK (remembered.load()->address == "old");
}

TEST_CASE ("whatever stands in the file, loading gives two texts or nothing")
{
    const juce::String good ("8.3vOirFHvnYN"), accented (juce::CharPointer_UTF8 ("\xc3\xa9"));
    const juce::String blob = juce::String::repeatedString ("A", 5 * 1024 * 1024);

    struct row
    {
        juce::String content;
        bool isLogin;
        juce::String address, password;
    };

    const row table[] = {
        { {}, false, {}, {} },
        { good, false, {}, {} },
        { good + "\n" + good, true, accented, accented },
        { "\r\n \t\r\n" + good + "\r\n\n\r" + good + "\r  ", true, accented, accented },
        { good + "\n" + good + "\n" + good, false, {}, {} },
        { "-1.AAAA\n2147483647.A\n", true, {}, {} },
        { "99999999999999999999.A\n8.\n", true, {}, {} },
        { "me@x.org\nsecret\n", true, {}, {} },
        { "5242880." + blob + "\n" + good, false, {}, {} },
    };

    temporaryInstallation installation;

    for (auto& row : table)
    {
        INFO (row.content.substring (0, 60));
        installation.write ("rememberme.txt", row.content);
        const auto loaded = rememberedLogin (installationFolder).load();
        CHECK (loaded.has_value() == row.isLogin);
        CHECK (loaded.value_or (login()).address == row.address);
        CHECK (loaded.value_or (login()).password == row.password);
    }

    const char withZero[] = "8.3vOirFHvnYN\n8.3vOirFHvnYN\n\0 8.3vOirFHvnYN";
    installation.write ("rememberme.txt", juce::MemoryBlock (withZero, sizeof (withZero)));
    CHECK (rememberedLogin (installationFolder).load()->password == accented);
}
