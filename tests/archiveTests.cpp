#include "base/boundedReading.h"
#include "content/jSimpleArchiveDirectory.h"
#include "sandbox/archiveWriter.h"
#include "tests/support/alertRobot.h"
#include "tests/support/dataTable.h"
#include "tests/support/temporaryInstallation.h"
#include <catch2/catch.hpp>
#include <fstream>

using namespace std::string_literals;

/** An archive file that lives as long as its reader. */
struct writtenArchive : jSimpleArchive
{
    explicit writtenArchive (const juce::MemoryBlock& bytes, const juce::String& suffix = ".bin")
        : file (suffix)
    {
        REQUIRE (file.getFile().replaceWithData (bytes.getData(), bytes.getSize()));
        open (file.getFile().getFullPathName());
    }

    juce::TemporaryFile file;
};

/** What a reader answers to a question of tests/data: "names" and a pattern, "header" and an offset, or the name of an
    entry, without which there are "none" of its bytes. */
static std::string ask (const jSimpleArchive& reader, const juce::String& question)
{
    const auto argument = question.fromFirstOccurrenceOf (" ", false, false);

    if (question.startsWith ("names "))
    {
        juce::StringArray names;
        reader.findEntries (argument, names);
        return names.joinIntoString (",").toStdString();
    }

    if (question.startsWith ("header "))
    {
        std::string bytes (16, '?');
        reader.readHeaderBytes (bytes.data(), argument.getIntValue());
        return bytes;
    }

    const auto stream = reader.createInputStreamFor (question);
    CHECK ((stream != nullptr) == reader.contains (question));
    const auto bytes = stream != nullptr ? readAtMost (*stream) : juce::MemoryBlock ("none", 4);
    return { bytes.begin(), bytes.end() };
}

// Scrambled entries hold OpenSSL's keystream for the counters of their position: in the file they are zeros.
TEST_CASE ("each archive of tests/data/archives answers as stands beside it")
{
    for (auto& file : testFile ("data/archives").findChildFiles (juce::File::findFiles, false))
    {
        const auto text = file.loadFileAsString();
        const auto bytes = expanded (
            text.fromFirstOccurrenceOf ("---\n", false, false).removeCharacters ("\n").toStdString());
        const writtenArchive archive ({ bytes.data(), bytes.size() });

        for (auto& line : juce::StringArray::fromLines (text.upToFirstOccurrenceOf ("\n---", false, false)))
        {
            INFO (file.getFileName() << ", " << line);
            CHECK (ask (archive, line.upToLastOccurrenceOf (": ", false, false))
                   == expanded (line.fromLastOccurrenceOf (": ", false, false).toStdString()));
        }
    }
}

TEST_CASE ("an archive cut anywhere serves what is whole in the file")
{
    const auto version = GENERATE (1u, 2u, 3u, 4u);
    archiveWriter writer{ version, { { "a", "12345", true } } };
    writer.header = "0123456789abcdef";
    const auto whole = writer.write();
    const auto data = whole.getSize() - 5;

    for (size_t length = 1; length < whole.getSize(); ++length)
    {
        CAPTURE (version, length);
        const writtenArchive archive ({ whole.getData(), length });
        auto header = writer.header.substr (0, version == 1 || length < 8 ? 0 : length - 8);
        header.resize (16);
        REQUIRE (ask (archive, "header 0") == header);
        REQUIRE (ask (archive, "names *") == (length < data ? "" : "a"));
        REQUIRE (ask (archive, "a") == (length < data ? "none" : "12345"s.substr (0, length - data)));
    }
}

TEST_CASE ("what is no archive stays invalid, and only an unknown version under .sa is reported, once")
{
    alertRobot robot;
    const auto future = archiveWriter{ 5, { { "a", "1" } } }.write();
    CHECK_FALSE (writtenArchive (future).isValid());
    CHECK_FALSE (writtenArchive (juce::MemoryBlock()).isValid());
    CHECK_FALSE (jSimpleArchive().open ("relative.sa"));
    CHECK (robot.texts.isEmpty());

    writtenArchive old (future, ".sa");
    const auto path = old.getArchivePath();
    CHECK_FALSE (old.open (path));
    CHECK_FALSE (jSimpleArchive().open (path + "missing.sa"));
    CHECK (robot.texts.joinIntoString ("; ")
           == "The packed archive " + path + " can't be opened because it's a old version.");
}

TEST_CASE_METHOD (temporaryInstallation, "a folder and its fallbacks are served, and nothing outside them")
{
    const auto secret = write ("secret.txt", "outside").getFullPathName();
    write ("item/sub/inner.txt", "inner");
    write ("item/Build.TXT", "12");
#if ! JUCE_WINDOWS // to which these would say something else
    for (auto* name : { "a:b", "aux.txt", "back\\slash", "end.", "new\nline", "rigmart.tmp" })
        write ("item/" + juce::String (name), "odd");

    std::ofstream (path.toStdString() + "/item/\xc3") << "a name that is no text";
#endif
    writtenArchive packed (archiveWriter{ 4, { { "packed.txt", "packed" }, { "Build.TXT", "no" } } }.write());
    writtenArchive under (archiveWriter{ 3, { { "under.txt", "2" }, { "packed.txt", "no" } } }.write());
    jSimpleArchiveDirectory reader;
    CHECK_FALSE (reader.open ("item"));
    REQUIRE (reader.open (path + "/item"));
    reader.fallback = &packed;
    packed.fallback = &under;
    CHECK (reader.getArchivePath() == path + "/item");
    const auto descriptors = [] {
        return juce::File ("/proc/self/fd").getNumberOfChildFiles (juce::File::findFilesAndDirectories);
    };
    const auto before = descriptors();
    checkTable ("folderEntries", [&] (auto& columns) { return ask (reader, juce::String (columns[0])); });
    CHECK (ask (reader, secret) == "none");
    CHECK (descriptors() == before);

    REQUIRE (folder.deleteRecursively());
    CHECK_FALSE (reader.isValid());
    CHECK (ask (reader, "Build.TXT") == "no");
}
