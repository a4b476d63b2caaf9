#include "base/boundedReading.h"
#include "content/jSimpleArchive.h"
#include "content/jSimpleArchiveDirectory.h"
#include "sandbox/archiveWriter.h"
#include "tests/support/alertRobot.h"
#include "tests/support/dataTable.h"
#include "tests/support/temporaryInstallation.h"
#include <catch2/catch.hpp>
#include <fstream>

using namespace std::string_literals;

/** The bytes of an entry, or "none" when there is no stream. */
static std::string bytesOf (const jSimpleArchive& reader, const juce::String& name)
{
    const auto stream = reader.createInputStreamFor (name);
    CHECK ((stream != nullptr) == reader.contains (name));

    if (stream == nullptr)
        return "none";

    const auto bytes = readAtMost (*stream);
    return { bytes.begin(), bytes.end() };
}

static juce::String namesIn (const jSimpleArchive& reader, const juce::String& pattern = "*")
{
    juce::StringArray names;
    reader.findEntries (pattern, names);
    return names.joinIntoString (",");
}

static std::string headerBytes (const jSimpleArchive& reader, int offset)
{
    std::string bytes (16, '?');
    reader.readHeaderBytes (bytes.data(), offset);
    return bytes;
}

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

/** What an archive answers to a question of tests/data/archives: "names" and a pattern, "header" and an offset, or the
    name of an entry. */
static std::string answerOf (const jSimpleArchive& archive, const juce::String& question)
{
    const auto argument = question.fromFirstOccurrenceOf (" ", false, false);

    if (question.startsWith ("names "))
        return namesIn (archive, argument).toStdString();

    return question.startsWith ("header ") ? headerBytes (archive, argument.getIntValue())
                                           : bytesOf (archive, question);
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
            const auto answer = answerOf (archive, line.upToLastOccurrenceOf (": ", false, false));
            CHECK (answer == expanded (line.fromLastOccurrenceOf (": ", false, false).toStdString()));
        }
    }
}

TEST_CASE ("what an archive does not have is asked of its fallback")
{
    writtenArchive under (archiveWriter{ 3, { { "same", "no" }, { "other", "2" } } }.write());
    writtenArchive over (archiveWriter{ 4, { { "same", "1" } } }.write());
    over.fallback = &under;
    CHECK (namesIn (over) == "same,same,other");
    CHECK (bytesOf (over, "same") == "1");
    CHECK (bytesOf (over, "other") == "2");
}

TEST_CASE ("an archive cut anywhere serves what is whole in the file")
{
    for (juce::uint32 version = 1; version <= 4; ++version)
    {
        archiveWriter writer{ version, { { "a", "12345", true }, { "b", "67890", true } } };
        writer.header = "0123456789abcdef";
        const auto whole = writer.write();
        const auto recordSize = version == 3 ? 264 : 72;
        const auto start = (int) whole.getSize() - 10 - 2 * recordSize;

        for (int length = 1; length < (int) whole.getSize(); ++length)
        {
            CAPTURE (version, length);
            const writtenArchive archive (juce::MemoryBlock (whole.getData(), (size_t) length));
            auto header =
                version > 1 ? writer.header.substr (0, (size_t) juce::jlimit (0, 16, length - 8)) : ""s;
            header.resize (16);
            REQUIRE (headerBytes (archive, 0) == header);

            const auto records = juce::jlimit (0, 2, (length - start) / recordSize);
            REQUIRE (namesIn (archive) == juce::String ("a,b").substring (0, records * 2 - 1));

            if (const auto data = length - start - 2 * recordSize; data >= 0)
                REQUIRE (bytesOf (archive, "a") + bytesOf (archive, "b")
                         == "1234567890"s.substr (0, (size_t) data));
        }
    }
}

TEST_CASE ("what is no archive stays invalid, and only an unknown version under .sa is reported, once")
{
    alertRobot robot;
    const auto future = archiveWriter{ 5, { { "a", "1" } } }.write();
    CHECK_FALSE (writtenArchive (future).isValid());
    CHECK_FALSE (writtenArchive (juce::MemoryBlock()).isValid());
    CHECK_FALSE (jSimpleArchive().open ("relative.sa"));
    CHECK (robot.texts().isEmpty());

    writtenArchive old (future, ".sa");
    const auto path = old.getArchivePath();
    CHECK_FALSE (old.open (path));
    CHECK_FALSE (jSimpleArchive().open (path + "missing.sa"));
    CHECK (robot.texts().joinIntoString ("; ")
           == "The packed archive " + path + " can't be opened because it's a old version.");
}

TEST_CASE ("a folder is served as an archive, and nothing outside it")
{
    const temporaryInstallation outside;
    const auto secret = outside.write ("secret.txt", "outside").getFullPathName();
    const auto item = outside.folder.getChildFile ("item");
    outside.write ("item/sub/inner.txt", "inner");
    outside.write ("item/Build.TXT", "12");
    writtenArchive packed (archiveWriter{ 1, { { "packed.txt", "packed" } } }.write());
    jSimpleArchiveDirectory folder;
    CHECK_FALSE (folder.open ("item"));
    REQUIRE (folder.open (item.getFullPathName()));
    folder.fallback = &packed;

    CHECK (namesIn (folder) == "Build.TXT,sub,packed.txt");
    CHECK (bytesOf (folder, "Build.TXT") == "12");
    CHECK (bytesOf (folder, "sub\\inner.txt") == "inner");
    CHECK (bytesOf (folder, "/sub//inner.txt") == "inner");
    CHECK (bytesOf (folder, "packed.txt") == "packed");

    for (auto name : { "../secret.txt", "..\\secret.txt", "sub/../../secret.txt", "..", secret.toRawUTF8(),
                       "sub", "/", "sub/../Build.TXT", "Build.TXT::$DATA", "Build.TXT.", "" })
    {
        CAPTURE (name);
        CHECK (bytesOf (folder, name) == "none");
    }

    REQUIRE (item.deleteRecursively());
    CHECK_FALSE (folder.isValid());
    CHECK (namesIn (folder) == "packed.txt");
}

#if ! JUCE_WINDOWS
TEST_CASE ("what is listed of a folder is found, whatever other systems would say to its name")
{
    const temporaryInstallation installation;
    const juce::StringArray odd{ "a:b", "aux.txt", "back\\slash", "end.", "new\nline", "rigmart.tmp" };

    for (auto& name : odd)
        installation.write (name, name);

    std::ofstream (installation.folder.getFullPathName().toStdString() + "/\xc3") << "a name that is no text";
    jSimpleArchiveDirectory folder;
    REQUIRE (folder.open (installation.folder.getFullPathName()));
    CHECK (namesIn (folder) == odd.joinIntoString (","));

    for (auto& name : odd)
        CHECK (bytesOf (folder, name) == name.toStdString());
}
#endif
