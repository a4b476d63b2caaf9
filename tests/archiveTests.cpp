#include "base/boundedReading.h"
#include "content/jSimpleArchive.h"
#include "content/jSimpleArchiveDirectory.h"
#include "sandbox/archiveWriter.h"
#include "tests/support/alertRobot.h"
#include "tests/support/temporaryInstallation.h"
#include <catch2/catch.hpp>
#include <fstream>

#if ! JUCE_WINDOWS
    #include <sys/stat.h>
#endif

using namespace std::string_literals;

static constexpr auto intMax = std::numeric_limits<int>::max(), intMin = std::numeric_limits<int>::min();

/** The bytes of an entry, or "-" when there is no stream. */
static std::string bytesOf (const jSimpleArchive& reader, const juce::String& name)
{
    const auto stream = reader.createInputStreamFor (name);
    const auto bytes = stream == nullptr ? juce::MemoryBlock ("-", 1) : readAtMost (*stream);
    return { bytes.begin(), bytes.end() };
}

static juce::String namesIn (const jSimpleArchive& reader, const juce::String& pattern = "*")
{
    juce::StringArray names;
    reader.findEntries (pattern, names);
    return names.joinIntoString (",");
}

/** An archive file that lives as long as its reader. */
struct writtenArchive : jSimpleArchive
{
    explicit writtenArchive (const juce::MemoryBlock& bytes, const juce::String& suffix = ".bin")
        : file (suffix)
    {
        file.getFile().create();
        file.getFile().appendData (bytes.getData(), bytes.getSize());
        open (file.getFile().getFullPathName());
    }

    juce::TemporaryFile file;
};

TEST_CASE ("each version is read by its own layout, and scrambling counts from version 3 on")
{
    // OpenSSL's keystream for the counters that position 1 of the directory has here: scrambled it is zeros.
    const std::string secret ("\xfb\x55\x8c\xac\x81\xc0\x68\xe6\x79\xe0\x76\x4e"), zeros (12, '\0');
    const std::string key ("\x7d\xeb\x4e\0\x51\xc3\x7f\x02\0\0\0\0\0\0\0\0", 16), nothing (16, '\0');

    for (juce::uint32 version = 1; version <= 4; ++version)
    {
        archiveWriter writer{ version, { { "first.txt", "plain" }, { "b", secret, true } } };
        writer.keyWord = 5172093;
        writer.indexBase = 41927505;
        writer.header = "header" + std::string (126, '.') + "The 16 last ones";
        const auto bytes = writer.write();
        CHECK (std::string (bytes.end() - zeros.size(), bytes.end()) == (version >= 3 ? zeros : secret));

        const writtenArchive archive (bytes);
        CHECK (namesIn (archive) == "first.txt,b");
        CHECK (bytesOf (archive, "first.txt") == "plain");
        CHECK (bytesOf (archive, "b") == secret);

        std::string last (32, '?');
        archive.readHeaderBytes (last.data(), 132);
        archive.readHeaderBytes (last.data() + 16, 148);
        CHECK (last == (version == 1 ? nothing : "The 16 last ones") + (version >= 3 ? key : nothing));

        archive.readHeaderBytes (last.data(), version % 2 == 0 ? intMin : intMax);
        CHECK (last.substr (0, 16) == nothing);
    }
}

TEST_CASE ("names are found exactly, listed by pattern, and otherwise asked of the fallback")
{
    const std::string longest (60, 'n'), longestOfVersion3 (252, 'v');
    const archiveWriter over{ 4, { { longest + "cut", "1" }, { "same", "2" }, { "same", "no" } } };
    const archiveWriter under{ 3, { { longestOfVersion3, "3" }, { "same", "no" }, { "O\xd6.PNG", "4" } } };
    writtenArchive fallback (under.write()), archive (over.write());
    archive.fallback = &fallback;
    std::string found;

    for (auto name : { longest.c_str(), "same", longestOfVersion3.c_str(), "OÖ.PNG", "", "Same", "sam", "*" })
    {
        const auto bytes = bytesOf (archive, juce::CharPointer_UTF8 (name));
        CHECK (archive.contains (juce::CharPointer_UTF8 (name)) == (bytes != "-"));
        found += bytes;
    }

    CHECK (found == "1234----");
    CHECK (namesIn (archive, "*.png") == juce::CharPointer_UTF8 ("OÖ.PNG"));
    CHECK (namesIn (archive, "S?me") == "same,same,same");
}

TEST_CASE ("a cut archive serves what is whole in the file, and no announced number is trusted")
{
    for (juce::uint32 version = 1; version <= 4; ++version)
    {
        archiveWriter writer{ version, { { "a", "12345", true }, { "b", "67890", true } } };
        writer.header = "0123456789abcdef" + std::string (132, '.');
        const auto whole = writer.write();
        const auto recordSize = version == 3 ? 264 : 72;
        const auto start = (int) whole.getSize() - 10 - 2 * recordSize;

        for (int length = 1; length < (int) whole.getSize(); ++length)
        {
            const writtenArchive archive (juce::MemoryBlock (whole.getData(), (size_t) length));
            char header[16];
            archive.readHeaderBytes (header, 0);
            REQUIRE (std::string (header, 16)
                     == (version > 1
                             ? "0123456789abcdef"s.substr (0, (size_t) juce::jlimit (0, 16, length - 8))
                             : ""s)
                            .append (16, '\0')
                            .substr (0, 16));
            const auto records = juce::jlimit (0, 2, (length - start) / recordSize);
            const auto data = (size_t) juce::jmax (0, length - start - 2 * recordSize);
            REQUIRE (namesIn (archive) == juce::String ("a,b").substring (0, records * 2 - 1));

            if (records == 2)
                REQUIRE (bytesOf (archive, "a") + bytesOf (archive, "b") == std::string ("1234567890", data));
        }

        writer.wrongCount = version % 2 == 0 ? intMax : intMin;
        CHECK (namesIn (writtenArchive (writer.write())).startsWith ("a") == (version % 2 == 0));
    }

    for (const auto& [size, offset, bytes] :
         { std::tuple (5, -1, ""), { intMax, 241, "" }, { intMin, 236, "" }, { intMax, 239, "es" } })
    {
        const archiveWriter writer{ 4, { { "e", "bytes", false, size, offset } } };
        CHECK (bytesOf (writtenArchive (writer.write()), "e") == bytes);
    }
}

TEST_CASE ("what is no archive stays invalid, and only an unknown version under .sa is reported, once")
{
    alertRobot robot;
    const auto future = archiveWriter{ 5, { { "a", "1" } } }.write();

    CHECK_FALSE ((writtenArchive (future).isValid() || writtenArchive (juce::MemoryBlock()).isValid()));
    CHECK (robot.texts().isEmpty());
    writtenArchive old (future, ".sa");
    const auto path = old.getArchivePath();
    CHECK_FALSE (old.open (path));

    for (auto& missing : { path + "missing.sa", juce::String(), juce::String ("relative.sa") })
        CHECK_FALSE (jSimpleArchive().open (missing));

    const auto reported = "The packed archive " + path + " can't be opened because it's a old version.";
    CHECK (robot.texts() == juce::StringArray (reported));
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
    CHECK (bytesOf (folder, "Build.TXT") + bytesOf (folder, "sub\\inner.txt") == "12inner");
    CHECK (bytesOf (folder, "packed.txt") == "packed");
    CHECK (bytesOf (folder, "/sub//inner.txt") == "inner");

    for (auto name : { "../secret.txt", "..\\secret.txt", "sub/../../secret.txt", "..", secret.toRawUTF8(),
                       "sub", "/", "sub/../Build.TXT", "Build.TXT::$DATA", "Build.TXT.", "" })
    {
        CAPTURE (name);
        CHECK ((bytesOf (folder, name) == "-" && ! folder.contains (name)));
    }

#if ! JUCE_WINDOWS
    // What is listed is found, whatever other systems would say to its name; what is no text is neither.
    juce::StringArray odd{ "a:b", "aux.txt", "back\\slash", "end.", "new\nline", "rigmart.tmp" }, listed;
    for (auto& name : odd)
        outside.write ("item/" + name, name);

    REQUIRE (mkfifo ((item.getFullPathName() + "/pipe").toRawUTF8(), 0600) == 0);
    std::ofstream (item.getFullPathName().toStdString() + "/\xc3") << "no text";
    folder.findEntries ("*", listed);
    CHECK (listed.size() == 2 + odd.size() + 1 + 1);

    for (auto& name : odd)
        CHECK ((listed.contains (name) && bytesOf (folder, name) == name.toStdString()));

    CHECK_FALSE (folder.contains ("pipe"));
#endif

    REQUIRE (item.deleteRecursively());
    CHECK ((! folder.isValid() && namesIn (folder) == "packed.txt"));
}
