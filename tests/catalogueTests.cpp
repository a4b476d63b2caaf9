#include "content/catalogue.h"
#include "content/targetPath.h"
#include <catch2/catch.hpp>

TEST_CASE ("a catalogue reply becomes its complete items in their order")
{
    const auto reply = juce::parseXML (R"(<reply>
        <downloadable url="http://s/a?x=1&amp;flag&amp;y=" target="modules/a.sa" name="A &amp; B" buildnumber="12"
                      builddaterequirement="160101" colour="red"><note>ignored</note></downloadable>
        <downloadable url="u" target="t"/> <downloadable url="u" name="n"/> <downloadable target="t" name="n"/>
        <Downloadable url="u" target="t" name="n"/> <other url="u" target="t" name="n"/> text
        <group><downloadable url="u" target="t" name="n"/></group>
        <downloadable url="" target="modules/a.sa" name="" buildnumber="many"/>
        <downloadable url="u" target="" name="n" buildnumber=" -7x"/> <downloadable url="u" target="t" name="n"/>
    </reply>)");
    juce::Array<DownloadItem> items;
    readCatalogue (*reply, "/inst", items);
    juce::String found;

    for (auto& item : items)
        found << item.url << "|" << item.target << "|" << item.name << "|" << item.buildnumber << "|"
              << item.builddaterequirement << "\n";

    CHECK (found
           == "http://s/a?x=1&flag&y=|/inst/modules/a.sa|A & B|12|160101\n|/inst/modules/a.sa||0|000000\n"
              "u|/inst/|n|-7|000000\nu|/inst/t|n|-1|000000\n");
}

static juce::String allowedOf (const char* paths)
{
    const auto folder = juce::File::getSpecialLocation (juce::File::tempDirectory).getFullPathName();
    juce::StringArray allowed;

    for (auto& path : juce::StringArray::fromTokens (juce::CharPointer_UTF8 (paths), "|", {}))
        if (const auto allowedPath = targetPath (folder + "/" + path, folder))
            allowed.add (allowedPath->fromFirstOccurrenceOf (folder + "/", false, false));

    return allowed.joinIntoString ("|");
}

TEST_CASE ("only a path that stays below its folder is a target, with slashes between its parts")
{
    const auto good = "a|a.sa|dir/a.sa|.hidden|a..b/c| a|~a|~/a|com.sa|com10.sa|console|ü/コ|rigmart.tmp/x|"
                      "rigmart-0123456789abcdef.tmp|rigmart-0123456789abcde.tmp";
    CHECK (allowedOf (good) == juce::CharPointer_UTF8 (good));
    CHECK (allowedOf ("dir\\sub dir\\a.sa|a/b\\c") == "dir/sub dir/a.sa|a/b/c");
    CHECK (allowedOf (
               "/|\\|/a|\\a|//host/share/a|\\\\?\\C:\\a|a/|a//b|a/\\b|.|..|../a|a/../b|a\\..\\..\\b|a/..|./a"
               "|a/.|...|a./b|a ./b|a/.. /b|a |C:|C:a|C:/a|a:stream|a/b:c|a\nb|a\tb|a\x7f")
           == "");

    const auto devices = "NUL|nul.sa|a/Con|aux .txt|com1|x/LPT9.tar.gz|com\xc2\xb9.sa|conin$";
#if JUCE_WINDOWS
    CHECK (allowedOf (devices) == "");
#else
    CHECK (allowedOf (devices) == juce::CharPointer_UTF8 (devices));
#endif

    for (auto& [target, folder] : { std::pair ("/inst/a", "/other"), { "inst/a", "inst" }, { "/a", "" } })
        CHECK_FALSE (targetPath (target, folder).has_value());
}
