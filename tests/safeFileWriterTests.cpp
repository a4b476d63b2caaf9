#include "app/installationPaths.h"
#include "base/safeFileWriter.h"
#include "content/targetPath.h"
#include "tests/support/temporaryInstallation.h"
#include <catch2/catch.hpp>

#if JUCE_LINUX
    #include <csignal>
    #include <sys/mount.h>
    #include <sys/stat.h>
    #include <sys/wait.h>
    #include <unistd.h>
#endif

static const auto times = juce::String::repeatedString;

static bool replace (const juce::File& target, const juce::String& content)
{
    safeFileWriter writer (target);
    return writer.write ("start ", 6) && writer.write (content.toRawUTF8(), content.getNumBytesAsUTF8())
           && writer.commit() && ! writer.commit();
}

TEST_CASE ("a file is made with its parents or replaced, whatever its name, and nothing else stays")
{
    temporaryInstallation installation;
    installation.write ("old.sa", "an old file that is longer than the new one");
    const juce::StringArray names{ "a/b/new.sa", times ("m", 255), times ("n", 250), "old.sa" };

    for (auto& name : names)
        CHECK ((replace (installation.folder.getChildFile (name), "new")
                && installation.folder.getChildFile (name).loadFileAsString() == "start new"));

    CHECK (installation.files() == names);
}

TEST_CASE ("a write that fails leaves the old file and no other trace")
{
    temporaryInstallation installation;
    const auto old = installation.write ("dir/old.sa", "old");
    const auto folder = old.getParentDirectory().getFullPathName();
    REQUIRE (installation.folder.getChildFile ("empty").createDirectory().wasOk());

    const auto fails = [&] (const juce::String& target, int size = 9) {
        const auto before = installation.files();
        return ! replace (installation.folder.getChildFile (target), times ("x", size))
               && installation.files() == before && old.loadFileAsString() == "old";
    };

    for (auto& target :
         juce::StringArray{ "empty", "dir", "dir/old.sa/below.sa", "no/such/" + times ("n", 300) })
        CHECK ((fails (target) && installation.folder.getChildFile ("empty").isDirectory()));

    CHECK_FALSE (installation.folder.getChildFile ("no").exists());

#if JUCE_WINDOWS
    const juce::FileInputStream reader (old); // lets others read and write, but not rename
    CHECK (fails ("dir/old.sa"));
#else
    const auto isRoot = geteuid() == 0;
    REQUIRE ((juce::File (folder).setReadOnly (true) && (! isRoot || seteuid (65534) == 0)));
    CHECK (fails ("dir/old.sa"));
    REQUIRE (((! isRoot || seteuid (0) == 0) && juce::File (folder).setReadOnly (false)));

    if (mount ("none", folder.toRawUTF8(), "tmpfs", 0, "size=300k") != 0)
    {
        WARN ("no full disk: only root can mount a small file system");
        return;
    }

    installation.write ("dir/old.sa", "old");
    CHECK ((fails ("dir/old.sa", 1000000) && fails ("dir/new.sa", 1000000)));
    CHECK (umount2 (folder.toRawUTF8(), MNT_DETACH) == 0);
#endif
}

/** The name of a file that is being written, as one that was killed leaves it. */
static juce::String abandonedName (const juce::File& folder)
{
    const temporaryFile writing (folder, temporaryFile::readers::everybody);
    REQUIRE (writing.isOpen());
    return folder.findChildFiles (juce::File::findFiles, false, "rigmart-*").getFirst().getFileName();
}

TEST_CASE ("the next write removes what was left behind, and nothing that only has such a name")
{
    temporaryInstallation installation;
    const auto name = abandonedName (installation.folder), folderName = abandonedName (installation.folder);
    CHECK ((temporaryFile::isTemporaryName (name) && temporaryFile::isTemporaryName (name.toUpperCase())));
    CHECK_FALSE (targetPath (installationFolder + "/a/" + name + "/b", installationFolder).has_value());

    installation.write (name, "left behind");
    installation.write (folderName + "/kept", "in a folder");
    juce::StringArray others{ folderName + "/kept", "rigmart-0123456789abcdef.tmp", "rigmart.tmp",
                              "x" + name };

    for (auto& other : others)
        installation.write (other, "a user's own");

    {
        const safeFileWriter underWay (installation.folder.getChildFile ("other.sa"));
        CHECK (installation.files().size() == 5); // what was left behind is gone, and a temporary file there
        CHECK (replace (installation.folder.getChildFile ("item.sa"), "new"));
        CHECK (installation.files().size() == 6);
    }

    others.insert (0, "item.sa");
    others.sort (false);
    CHECK (installation.files() == others);
}

#if JUCE_LINUX
TEST_CASE ("pipes, links and other people's files under such a name are in nobody's way, and unharmed")
{
    temporaryInstallation installation;
    const auto secret = installation.write ("elsewhere/secret", "secret");
    const auto folder = installation.folder.getChildFile ("items");
    REQUIRE (folder.createDirectory().wasOk());
    const auto pipe = folder.getChildFile (abandonedName (folder)),
               link = folder.getChildFile (abandonedName (folder)),
               foreign = folder.getChildFile (abandonedName (folder));
    REQUIRE (mkfifo (pipe.getFullPathName().toRawUTF8(), 0600) == 0);
    REQUIRE (secret.createSymbolicLink (link, false));
    REQUIRE (foreign.replaceWithText ("another user's"));
    const auto isRoot = geteuid() == 0;
    REQUIRE ((! isRoot || chown (foreign.getFullPathName().toRawUTF8(), 65534, 65534) == 0));

    CHECK (replace (folder.getChildFile ("item.sa"), "new"));
    CHECK ((pipe.exists() && link.isSymbolicLink() && secret.loadFileAsString() == "secret"));
    CHECK (foreign.exists() == isRoot);
}

/** Writes the same file over and over, filled with one letter, until it is killed. False when a write fails. */
static pid_t startWriter (const juce::File& target, char letter)
{
    const auto child = fork();

    if (child != 0)
        return child;

    const auto content = times (juce::String::charToString ((juce::juce_wchar) letter), 100000);

    for (int i = 0; i < 200; ++i)
        if (! replace (target, content))
            _exit (1);

    _exit (0);
}

TEST_CASE ("programs that write into one folder do not mix what they write")
{
    temporaryInstallation installation;
    pid_t writers[4];

    for (size_t i = 0; i < std::size (writers); ++i)
        writers[i] =
            startWriter (installation.folder.getChildFile (juce::String ((int) i / 2)), (char) ('a' + i));

    for (auto writer : writers)
    {
        int status = 1;
        CHECK ((waitpid (writer, &status, 0) == writer && status == 0)); // every write succeeded
    }

    CHECK (installation.files() == juce::StringArray{ "0", "1" });

    for (auto* name : { "0", "1" })
    {
        const auto found = installation.folder.getChildFile (name).loadFileAsString().substring (6);
        CHECK ((found == times (found.substring (0, 1), 100000)
                && juce::String (name[0] == '0' ? "ab" : "cd").containsChar (found[0])));
    }
}

TEST_CASE ("a program killed while it writes leaves the old file or the new one")
{
    temporaryInstallation installation;
    const juce::String contents[] = { times ("a", 300000), times ("b", 200000) };
    const auto target = installation.folder.getChildFile ("item.sa");
    REQUIRE (replace (target, contents[0]));

    for (int kills = 0; kills < 200; ++kills)
    {
        const auto child = fork();

        if (child == 0)
            for (size_t round = 0;; ++round)
                replace (target, contents[round % 2]);

        usleep ((useconds_t) (500 + kills * 97 % 20000));
        kill (child, SIGKILL);
        waitpid (child, nullptr, 0);
        const auto found = target.loadFileAsString();
        REQUIRE ((found == "start " + contents[0] || found == "start " + contents[1]));
    }

    CHECK ((replace (target, contents[0]) && installation.files() == juce::StringArray ("item.sa")));
}
#endif
