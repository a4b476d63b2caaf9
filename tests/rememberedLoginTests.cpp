#include "app/installationPaths.h"
#include "net/rememberedLogin.h"
#include "tests/support/temporaryInstallation.h"
#include <catch2/catch.hpp>

TEST_CASE ("a remembered login is two scrambled lines")
{
    temporaryInstallation installation;
    const rememberedLogin remembered (installationFolder);
    const auto file = installation.write ("rememberme.txt", "something old, open to all");

    // Scrambled by another library's Blowfish.
    remembered.save ({ "me@example.org", "secret&1" });
    CHECK (file.loadFileAsString() == "16.VBCyImenEXYEEhUHdWTFNB\r\n16.HBy6dSNsNccdfamSrJRFNB\r\n");
    CHECK (installation.files() == juce::StringArray{ "rememberme.txt" });

    // What is saved is read back, or is not saved.
    for (auto& [length, saved] : { std::pair (60000, true), { 1000000, false } })
    {
        remembered.save ({ juce::String (length), juce::String::repeatedString ("p", length) });
        CHECK ((remembered.load()->address == juce::String (length)) == saved);
    }

    CHECK_FALSE (rememberedLogin ("relative").load().has_value());
}

TEST_CASE ("whatever stands in the file, loading gives two texts or nothing")
{
    const juce::String good ("8.3vOirFHvnYN"), accented (juce::CharPointer_UTF8 ("\xc3\xa9"));
    const auto mark = juce::String::charToString (0xfeff);
    const auto blob = "5242880." + juce::String::repeatedString ("A", 5 * 1024 * 1024);

    const std::pair<juce::String, juce::String> table[] = {
        { good, "none" },
        { good + "\n" + good + "\n" + good, "none" },
        { blob + "\n" + good, "none" },
        { "\r\n \t\r\n" + good + "\r\n\n\r8.\r  ", accented + "|" },
        { mark + " \t" + good + "\n0.", accented + "|" },
        { mark + " 08.3vOirFHvnYN\n8x." + good.substring (2) + "zz", accented + "|" + accented },
        { "-1.AAAA\n-2147483648.A", "|" },
        { "-1.AAAA\n99999999999999999999.A\n", "|" },
    };

    temporaryInstallation installation;

    for (auto& [content, expected] : table)
    {
        INFO (content.substring (0, 60));
        installation.write ("rememberme.txt", content);
        const auto login = rememberedLogin (installationFolder).load();
        CHECK ((login ? login->address + "|" + login->password : juce::String ("none")) == expected);
    }
}
