#include "content/catalogue.h"
#include "content/targetPath.h"
#include <catch2/catch.hpp>

TEST_CASE ("a catalogue reply becomes its complete items in their order")
{
    const auto reply = juce::parseXML (R"(<reply>
        <downloadable url="http://s/a?x=1&amp;flag&amp;y=" target="modules/a.sa" name="A &amp; B" buildnumber="12"
                      builddaterequirement="160101" colour="red"><note>ignored</note></downloadable>
        <downloadable url="http://s/b" target="modules/b.sa"/>
        <downloadable url="http://s/b" name="B"/>
        <downloadable target="modules/b.sa" name="B"/>
        <Downloadable url="http://s/b" target="b" name="B"/>
        <other url="http://s/b" target="b" name="B"/>
        <group><downloadable url="http://s/b" target="b" name="B"/></group>
        text
        <downloadable url="" target="modules/a.sa" name="" buildnumber="many"/>
        <downloadable url="http://s/c" target="" name="C" buildnumber=" -7x"/>
        <downloadable url="http://s/d" target="d" name="D"/>
    </reply>)");
    juce::Array<DownloadItem> items{ { "earlier", {}, {}, 1, {} } };
    readCatalogue (*reply, "/inst", items);

    juce::StringArray found;
    for (auto& item : items)
        found.add (item.url + "|" + item.target + "|" + item.name + "|" + juce::String (item.buildnumber)
                   + "|" + item.builddaterequirement);

    CHECK (found
           == juce::StringArray{ "earlier|||1|", "http://s/a?x=1&flag&y=|/inst/modules/a.sa|A & B|12|160101",
                                 "|/inst/modules/a.sa||0|000000", "http://s/c|/inst/|C|-7|000000",
                                 "http://s/d|/inst/d|D|-1|000000" });
}

TEST_CASE ("only a path that stays below its folder on every platform is a target")
{
    for (auto* path : { "a", "a.sa", "folder/a.sa", "folder\\sub folder\\a.sa", ".hidden", "a..b/c", " a",
                        "~a", "~/a", "com.sa", "com10.sa", "console", "nul_", "ünï/コ" })
    {
        INFO (path);
        CHECK (isAllowedTarget (juce::CharPointer_UTF8 (path)));
    }

    const char* refused[] = {
        "",       "/",     "\\",       "/a",    "\\a",           "//host/share/a", "\\\\?\\C:\\a", "a/",
        "a//b",   "a/\\b", ".",        "..",    "../a",          "a/../b",         "a\\..\\..\\b", "a/..",
        "./a",    "a/.",   "...",      "a./b",  "a ./b",         "a/.. /b",        "a ",           "C:",
        "C:a",    "C:/a",  "a:stream", "a/b:c", "a\nb",          "a\tb",           "a\x7f",        "NUL",
        "nul.sa", "a/Con", "aux .txt", "com1",  "x/LPT9.tar.gz", "com\xc2\xb9.sa", "conin$"
    };

    for (auto* path : refused)
    {
        INFO (path);
        CHECK_FALSE (isAllowedTarget (juce::CharPointer_UTF8 (path)));
    }
}
