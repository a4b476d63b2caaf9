#include "tests/support/script.h"
#include "base/ordinaryFile.h"
#include "net/storeAddress.h"
#include "sandbox/archiveWriter.h"
#include "tests/support/dataTable.h"
#include <catch2/catch.hpp>
#include <regex>

scene::scene()
{
    acts["file"] = [this] (auto& a) {
        installation.write (a[0].replace ("TEMPORARY", abandonedName (installation.folder)),
                            expanded (a[1].toStdString()));
    };
    acts["archive of version"] = [this] (auto& a) {
        const archiveWriter writer{ (juce::uint32) a[0].getIntValue(),
                                    { { "other", "99" }, { a[2].toStdString(), a[3].toStdString(), true } } };
        installation.write (a[1], writer.write());
    };
    acts["a login is remembered"] = [this] (auto&) {
        installation.write ("rememberme.txt", "16.VBCyImenEXYEEhUHdWTFNB\n16.HBy6dSNsNccdfamSrJRFNB\n");
    };
    acts["reply"] = [this] (auto& a) { server.reply (expanded (a[0].toStdString())); };
    acts["then keep"] = [this] (auto&) { server.keep(); };
    acts["then silence"] = [this] (auto&) { server.waitUntil(); };
    acts["then reset"] = [this] (auto&) { server.reset(); };
}

/** A text, or how long it is. */
static juce::String inShort (const std::string& bytes)
{
    return bytes.size() < 100 ? escaped (bytes) : std::to_string (bytes.size()) + " bytes";
}

/** What is in a file, if it can be read. */
static juce::String contentOf (const juce::File& file)
{
    juce::MemoryBlock bytes;

    if (! isOrdinaryFile (file) || ! file.loadFileAsData (bytes))
        return {};

    const auto isText = juce::CharPointer_UTF8::isValidString (bytes.begin(), (int) bytes.getSize());
    return isText ? inShort ({ bytes.begin(), bytes.end() }) : "no text";
}

/** A text without what differs from run to run, in our own writing of paths. */
static juce::String steady (const juce::String& text)
{
    const auto path = text.replace ("FOLDER\\", "FOLDER/").replace ("\\rigmartreturn", "/rigmartreturn");
    const auto named = std::regex_replace (path.toStdString(),
                                           std::regex ("rigmart-(?!0123)[0-9a-f]{16}\\.tmp"), "TEMPORARY");
    return std::regex_replace (named, std::regex ("\\(\\d{1,5}ms\\)"), "(TIME)");
}

juce::StringArray scene::look()
{
    juce::StringArray files, lines;
    int number = 0;

    for (auto& path : installation.files())
    {
        files.add (steady (path));
        lines.add (path + ": " + contentOf (installation.folder.getChildFile (path)));
    }

    for (auto& request : server.requests())
        lines.add ("request " + juce::String (++number) + ": " + request.line() + " | " + request.body()
                   + " | token: " + inShort (request.header ("Authorization")));

    files.sort (false);
    lines.add ("files: " + files.joinIntoString (", "));
    return lines;
}

/** What came of an act since `shown` was to be seen, which becomes what is to be seen now: without what differs from
    build to build and from run to run. */
static juce::String outcomeOf (scene& played, juce::StringArray& shown)
{
    auto outcome = std::exchange (played.events, {});
    const auto before = std::exchange (shown, played.look());

    for (auto& call : std::exchange (played.owner.calls, {}))
        outcome.add ("owner: " + call);

    for (auto& box : std::exchange (played.robot.texts, {}))
        outcome.add ("box: " + box);

    for (auto& line : shown)
        if (! before.contains (line))
            outcome.add (line);

    juce::String text;

    for (auto& line : outcome)
        text << line.replace ("\n", "\\n") << "\n";

    return steady (text.replace (storeAddress(), "STORE").replace (played.installation.path, "FOLDER"));
}

/** Does what the lines of a scene say, and writes down what comes of it. */
static juce::String play (scene& played, const juce::StringArray& lines)
{
    auto shown = played.look();
    auto text = lines[0] + "\n";

    for (auto& line : lines)
    {
        if (! line.startsWith ("> "))
            continue;

        INFO (line);
        auto words = juce::StringArray::fromTokens (line.substring (2), "|", {});
        words.trim();
        REQUIRE (played.acts.count (words[0]) == 1);
        const auto& act = played.acts.at (words[0]);
        words.remove (0);
        act (words);
        drainMessages();
        text << line << "\n" << outcomeOf (played, shown);
    }

    return text;
}

/** The first lines that differ, below those before them. */
static juce::String firstDifference (const juce::StringArray& expected, const juce::StringArray& found)
{
    int line = 0;

    while (line < expected.size() && expected[line] == found[line])
        ++line;

    return expected.joinIntoString ("\n", 0, line) + "\n- " + expected[line] + "\n+ " + found[line];
}

/** Holds what was found in a scene of a script against what stands there. */
static void checkScene (const juce::File& script, const juce::String& expected, const juce::String& found)
{
    const auto whole = script.loadFileAsString();
    const auto file = juce::File (FOUND_FOLDER).getChildFile (script.getFileName());

    if (whole.startsWith (expected)) // what an earlier run has found counts no more
        file.deleteFile();

    if (found == expected)
        return;

    const auto before = file.existsAsFile() ? file.loadFileAsString() : whole;
    REQUIRE (file.create().wasOk());
    REQUIRE (file.replaceWithText (before.replace (expected, found), false, false, "\n"));
    FAIL_CHECK ("tests/expected/" << script.getFileName() << " says (-) and this is (+):\n"
                                  << firstDifference (juce::StringArray::fromLines (expected),
                                                      juce::StringArray::fromLines (found)));
}

#if JUCE_WINDOWS
static constexpr auto otherSystem = "# On Linux: ";
#else
static constexpr auto otherSystem = "# On Windows: ";
#endif

void playScript (const juce::String& name, const std::function<std::unique_ptr<scene>()>& begin)
{
    const auto script = testFile ("expected/" + name + ".txt");
    const auto scenes = "\n" + script.loadFileAsString();

    for (int start = 0, end = 0; end >= 0; start = end)
    {
        end = scenes.indexOf (start + 1, "\n# ");
        const auto expected = scenes.substring (start + 1, end < 0 ? scenes.length() : end);
        const auto lines = juce::StringArray::fromLines (expected);

        if (lines[0].startsWith (otherSystem))
            continue;

        DYNAMIC_SECTION (lines[0]) // for each of which the framework starts anew
        {
            checkScene (script, expected, play (*begin(), lines));
        }
    }
}
