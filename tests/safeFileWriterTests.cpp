#include "base/safeFileWriter.h"
#include "content/targetPath.h"
#include "tests/support/dataTable.h"
#include "tests/support/script.h"
#include <catch2/catch.hpp>
#include <future>

#if JUCE_LINUX
    #include <sys/stat.h>
    #include <unistd.h>
#endif

static bool replace (const juce::File& target, const juce::String& content = "new")
{
    safeFileWriter writer (target);
    return writer.write (content.toRawUTF8(), content.getNumBytesAsUTF8()) && writer.commit();
}

namespace
{
/** A folder in which programs write. */
struct writing : scene
{
    std::unique_ptr<safeFileWriter> underWay;
    std::unique_ptr<juce::FileInputStream> reader; // on Windows it lets others read and write, but not rename

    writing()
    {
        acts["folder"] = [this] (auto& a) { REQUIRE (fileAt (a[0]).createDirectory().wasOk()); };
        acts["write"] = [this] (auto& a) {
            events.add (replace (fileAt (a[0]), a[1]) ? "written" : "not written");
        };
        acts["begin to write"] = [this] (auto& a) {
            underWay = std::make_unique<safeFileWriter> (fileAt (a[0]));
        };
        acts["another program reads"] = [this] (auto& a) { reader = fileAt (a[0]).createInputStream(); };
        acts["end"] = [this] (auto&) { events.add (underWay->commit() ? "written" : "not written"); };
    }

    juce::File fileAt (const juce::String& name) const
    {
        return installation.folder.getChildFile (expanded (name.toStdString()));
    }
};
}

TEST_CASE ("files are written, or not, as the script says")
{
    playScript ("writing-script", [] { return std::make_unique<writing>(); });
}

TEST_CASE_METHOD (temporaryInstallation, "the name of a temporary file is known as one, and is no target")
{
    const auto name = abandonedName (folder);
    CHECK (temporaryFile::isTemporaryName (name));
    CHECK (temporaryFile::isTemporaryName (name.toUpperCase()));
    CHECK_FALSE (targetPath (path + "/a/" + name + "/b", path).has_value());
}

#if JUCE_LINUX
TEST_CASE_METHOD (temporaryInstallation, "pipes, links and others' files under such a name stay unharmed")
{
    const auto secret = write ("elsewhere/secret", "secret");
    const auto item = write ("items/item.sa", "old"), items = item.getParentDirectory();
    const auto pipe = items.getChildFile (abandonedName (items));
    const auto link = items.getChildFile (abandonedName (items));
    const auto foreign = items.getChildFile (abandonedName (items));
    const auto isRoot = geteuid() == 0;
    REQUIRE (mkfifo (pipe.getFullPathName().toRawUTF8(), 0600) == 0);
    REQUIRE (secret.createSymbolicLink (link, false));
    REQUIRE (foreign.replaceWithText ("another user's"));
    REQUIRE ((! isRoot || chown (foreign.getFullPathName().toRawUTF8(), 65534, 65534) == 0));

    CHECK (replace (item));
    CHECK (pipe.exists());
    CHECK (link.isSymbolicLink());
    CHECK (secret.loadFileAsString() == "secret");
    CHECK (foreign.exists() == isRoot);
}

TEST_CASE_METHOD (temporaryInstallation, "programs that write into one folder do not mix what they write")
{
    const auto file = folder.getChildFile ("item.sa");
    const auto times = juce::String::repeatedString;
    const juce::StringArray contents{ times ("a", 100000), times ("b", 100000), times ("c", 100000) };
    std::vector<std::future<int>>
        writers; // a lock belongs to the open file, so threads are as good as programs

    for (auto& content : contents)
        writers.push_back (std::async (std::launch::async, [&] {
            auto successes = 0;

            for (int i = 0; i < 200; ++i)
                successes += replace (file, content) ? 1 : 0;

            return successes;
        }));

    for (auto& writer : writers)
        CHECK (writer.get() == 200);

    CHECK (files() == juce::StringArray{ "item.sa" });
    CHECK (contents.contains (file.loadFileAsString()));
}
#endif
