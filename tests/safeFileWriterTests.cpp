#include "content/safeFileWriter.h"
#include "tests/support/temporaryInstallation.h"
#include <catch2/catch.hpp>

#if JUCE_LINUX
    #include <csignal>
    #include <sys/mount.h>
    #include <sys/wait.h>
    #include <unistd.h>
#endif

static bool replace (const juce::File& target, const juce::MemoryBlock& content)
{
    safeFileWriter writer (target);
    const auto half = content.getSize() / 2;

    return writer.write (content.getData(), half)
           && writer.write (juce::addBytesToPointer (content.getData(), half), content.getSize() - half)
           && writer.commit() && ! writer.commit();
}

static juce::MemoryBlock blockOf (char byte, size_t size)
{
    juce::MemoryBlock block (size);
    block.fillWith ((juce::uint8) byte);
    return block;
}

static juce::MemoryBlock bytesOf (const juce::File& file)
{
    juce::MemoryBlock block;
    file.loadFileAsData (block);
    return block;
}

TEST_CASE ("a file is made with its parents or replaced, whatever its name, and nothing else stays")
{
    temporaryInstallation installation;
    installation.write ("old.sa", "an old file that is longer than the new one");
    installation.write ("a/rigmart.tmp", "left behind by a program that was killed");
    const juce::StringArray names{ "a/b/new.sa", "a/killed.sa", juce::String::repeatedString ("n", 250),
                                   "old.sa" };
    const auto content = blockOf ('x', 20);

    for (auto& name : names)
    {
        CHECK (replace (installation.folder.getChildFile (name), content));
        CHECK (bytesOf (installation.folder.getChildFile (name)) == content);
    }

    CHECK (installation.files() == names);
}

/** A write into the folder "dir" must fail and leave everything as it was. */
static void checkFails (const temporaryInstallation& installation, const juce::String& target,
                        size_t size = 20)
{
    INFO (target);
    const auto before = installation.files();
    const auto old = bytesOf (installation.folder.getChildFile ("dir/old.sa"));

    CHECK_FALSE (replace (installation.folder.getChildFile (target), blockOf ('x', size)));
    CHECK (installation.files() == before);
    CHECK (bytesOf (installation.folder.getChildFile ("dir/old.sa")) == old);
}

TEST_CASE ("a write that fails leaves the old file and no other trace")
{
    temporaryInstallation installation;
    const auto old = installation.write ("dir/old.sa", "old");
    REQUIRE (installation.folder.getChildFile ("empty").createDirectory().wasOk());

    checkFails (installation, "empty");
    CHECK (installation.folder.getChildFile ("empty").isDirectory());
    checkFails (installation, "dir");
    checkFails (installation, "dir/old.sa/below.sa");
    checkFails (installation, "dir/" + juce::String::repeatedString ("n", 300));

    {
        safeFileWriter abandoned (old);
        CHECK (abandoned.write ("half", 4));
    }

    checkFails (installation, "dir"); // and the abandoned one left nothing

#if JUCE_WINDOWS
    const juce::FileInputStream reader (old); // shares reading and writing, not deleting
    checkFails (installation, "dir/old.sa");
#else
    const auto root = geteuid() == 0;
    REQUIRE (old.getParentDirectory().setReadOnly (true));
    REQUIRE ((! root || seteuid (65534) == 0));
    checkFails (installation, "dir/old.sa");
    REQUIRE ((! root || seteuid (0) == 0));
    REQUIRE (old.getParentDirectory().setReadOnly (false));
#endif
}

#if JUCE_LINUX
TEST_CASE ("a full disk is a failed write")
{
    temporaryInstallation installation;
    const auto folder = installation.folder.getChildFile ("dir");
    REQUIRE (folder.createDirectory().wasOk());

    if (mount ("none", folder.getFullPathName().toRawUTF8(), "tmpfs", 0, "size=300k") != 0)
    {
        WARN ("skipped: only root can mount a small file system");
        return;
    }

    installation.write ("dir/old.sa", "old");
    checkFails (installation, "dir/old.sa", 1000000);
    checkFails (installation, "dir/new.sa", 1000000);
    CHECK (replace (folder.getChildFile ("old.sa"), blockOf ('x', 200000)));
    CHECK (umount (folder.getFullPathName().toRawUTF8()) == 0);
}

TEST_CASE ("a program killed while it writes leaves the old file or the new one")
{
    temporaryInstallation installation;
    const juce::MemoryBlock contents[] = { blockOf ('a', 300000), blockOf ('b', 200000) };
    const auto target = installation.write ("item.sa", contents[0]);
    int kills = 0;

    for (; kills < 200; ++kills)
    {
        const auto child = fork();

        if (child == 0)
            for (size_t round = 0;; ++round)
                replace (target, contents[round % 2]);

        usleep ((useconds_t) (500 + kills * 37 % 20000));
        kill (child, SIGKILL);
        waitpid (child, nullptr, 0);

        const auto found = bytesOf (target);
        REQUIRE ((found == contents[0] || found == contents[1]));
    }

    CHECK (replace (target, contents[0]));
    CHECK (installation.files() == juce::StringArray{ "item.sa" });
}
#endif
