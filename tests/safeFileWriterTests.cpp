#include "base/safeFileWriter.h"
#include "content/targetPath.h"
#include "tests/support/temporaryInstallation.h"
#include <catch2/catch.hpp>
#include <future>

#if JUCE_LINUX
    #include <sys/stat.h>
    #include <unistd.h>
#endif

static const auto times = juce::String::repeatedString;

static bool replace (const juce::File& target, const juce::String& content)
{
    safeFileWriter writer (target);
    return writer.write (content.toRawUTF8(), content.getNumBytesAsUTF8()) && writer.commit();
}

TEST_CASE ("a file is made with its parents or replaced, whatever its name, and nothing else stays")
{
    const temporaryInstallation installation;
    installation.write ("old.sa", "an old file that is longer than the new one");
    const juce::StringArray names{ "a/b/new.sa", times ("m", 255), times ("n", 250), "old.sa" };

    for (auto& name : names)
    {
        CAPTURE (name);
        const auto file = installation.folder.getChildFile (name);
        CHECK (replace (file, "new"));
        CHECK (file.loadFileAsString() == "new");
    }

    CHECK (installation.files() == names);
}

TEST_CASE ("a write to where no file can be fails and leaves no trace")
{
    const temporaryInstallation installation;
    const auto old = installation.write ("dir/old.sa", "old");
    REQUIRE (installation.folder.getChildFile ("empty").createDirectory().wasOk());

    for (auto& target :
         juce::StringArray{ "empty", "dir", "dir/old.sa/below.sa", "no/such/" + times ("n", 300) })
    {
        CAPTURE (target);
        CHECK_FALSE (replace (installation.folder.getChildFile (target), "new"));
    }

    CHECK (installation.files() == juce::StringArray{ "dir/old.sa" });
    CHECK (old.loadFileAsString() == "old");
    CHECK (installation.folder.getChildFile ("empty").isDirectory());
    CHECK_FALSE (installation.folder.getChildFile ("no").exists());
}

#if JUCE_WINDOWS
TEST_CASE ("a file that another program reads stays as it was")
{
    const temporaryInstallation installation;
    const auto old = installation.write ("old.sa", "old");
    const juce::FileInputStream reader (old); // lets others read and write, but not rename
    CHECK_FALSE (replace (old, "new"));
    CHECK (old.loadFileAsString() == "old");
    CHECK (installation.files() == juce::StringArray{ "old.sa" });
}
#endif

/** The name of a file that is being written, as one that was killed leaves it. */
static juce::String abandonedName (const juce::File& folder)
{
    const temporaryFile writing (folder, temporaryFile::readers::everybody);
    REQUIRE (writing.isOpen());
    return folder.findChildFiles (juce::File::findFiles, false, "rigmart-*").getFirst().getFileName();
}

TEST_CASE ("the name of a temporary file is known as one, and is no target")
{
    const temporaryInstallation installation;
    const auto folder = installation.folder.getFullPathName();
    const auto name = abandonedName (installation.folder);
    CHECK (temporaryFile::isTemporaryName (name));
    CHECK (temporaryFile::isTemporaryName (name.toUpperCase()));
    CHECK_FALSE (targetPath (folder + "/a/" + name + "/b", folder).has_value());
}

TEST_CASE ("the next write removes what was left behind, and nothing that only has such a name")
{
    const temporaryInstallation installation;
    const auto name = abandonedName (installation.folder);
    juce::StringArray others{ abandonedName (installation.folder) + "/in a folder",
                              "rigmart-0123456789abcdef.tmp", "rigmart.tmp", "x" + name };

    for (auto& path : others)
        installation.write (path, "a user's own");

    installation.write (name, "left behind");
    CHECK (replace (installation.folder.getChildFile ("item.sa"), "new"));
    others.add ("item.sa");
    others.sort (false);
    CHECK (installation.files() == others);
}

TEST_CASE ("what another program is writing is not left behind")
{
    const temporaryInstallation installation;
    safeFileWriter underWay (installation.folder.getChildFile ("other.sa"));
    CHECK (replace (installation.folder.getChildFile ("item.sa"), "new"));
    CHECK (underWay.commit());
    CHECK (installation.files() == juce::StringArray{ "item.sa", "other.sa" });
}

#if JUCE_LINUX
TEST_CASE ("pipes, links and other people's files under such a name are in nobody's way, and unharmed")
{
    const temporaryInstallation installation;
    const auto secret = installation.write ("elsewhere/secret", "secret");
    const auto folder = installation.folder.getChildFile ("items");
    REQUIRE (folder.createDirectory().wasOk());
    const auto pipe = folder.getChildFile (abandonedName (folder));
    const auto link = folder.getChildFile (abandonedName (folder));
    const auto foreign = folder.getChildFile (abandonedName (folder));
    const auto isRoot = geteuid() == 0;
    REQUIRE (mkfifo (pipe.getFullPathName().toRawUTF8(), 0600) == 0);
    REQUIRE (secret.createSymbolicLink (link, false));
    REQUIRE (foreign.replaceWithText ("another user's"));
    REQUIRE ((! isRoot || chown (foreign.getFullPathName().toRawUTF8(), 65534, 65534) == 0));

    CHECK (replace (folder.getChildFile ("item.sa"), "new"));
    CHECK (pipe.exists());
    CHECK (link.isSymbolicLink());
    CHECK (secret.loadFileAsString() == "secret");
    CHECK (foreign.exists() == isRoot);
}

TEST_CASE ("programs that write into one folder do not mix what they write")
{
    const temporaryInstallation installation;
    const auto file = installation.folder.getChildFile ("item.sa");
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

    CHECK (installation.files() == juce::StringArray{ "item.sa" });
    CHECK (contents.contains (file.loadFileAsString()));
}
#endif
