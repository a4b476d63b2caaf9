#include "base/safeFileWriter.h"
#include "tests/support/temporaryInstallation.h"
#include <catch2/catch.hpp>

#if JUCE_LINUX
    #include <csignal>
    #include <sys/mount.h>
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
    installation.write ("a/rigmart.tmp", "left behind by a program that was killed");
    const juce::StringArray names{ "a/b/new.sa", "a/killed.sa", times ("n", 250), "old.sa" };

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

    for (auto& target : juce::StringArray{ "empty", "dir", "dir/old.sa/below.sa", "dir/" + times ("n", 300) })
        CHECK ((fails (target) && installation.folder.getChildFile ("empty").isDirectory()));

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

#if JUCE_LINUX
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
