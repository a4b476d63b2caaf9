#include "app/installationPaths.h"
#include "content/itemDecision.h"
#include "sandbox/archiveWriter.h"
#include "tests/support/alertRobot.h"
#include "tests/support/temporaryInstallation.h"
#include <catch2/catch.hpp>

#if ! JUCE_WINDOWS
    #include <sys/stat.h>
#endif

static itemDecision decide (int build, const juce::String& target, const char* requirement = "000000")
{
    return decideItem ({ {}, target, {}, build, requirement }, installationFolder);
}

/** Checks that the item "item" is installed in exactly this build. */
static void checkInstalled (int build)
{
    CHECK (decide (build, installationFolder + "/item") == itemDecision::current);
    CHECK (decide (build + 1, installationFolder + "/item") == itemDecision::needed);
}

static juce::MemoryBlock archiveOf (const char* build, juce::uint32 version)
{
    return archiveWriter{ version, { { "other", "99" }, { "buildnumber.txt", build, true } } }.write();
}

TEST_CASE ("an item is current up to the build that is installed: in a folder, else in .sa, else in a file")
{
    const temporaryInstallation installation;
    alertRobot robot;
    CHECK (decide (-1, installationFolder + "/item") == itemDecision::needed);
    const auto file = installation.write ("item", "no archive");
    CHECK (decide (-1, installationFolder + "/item") == itemDecision::needed);
    installation.write ("item", archiveOf ("7", 1));
    checkInstalled (7);
    installation.write ("item.sa", archiveOf ("12", 4));
    checkInstalled (12);
    CHECK (robot.texts().isEmpty());

    installation.write ("item.sa", archiveOf ("12", 5));
    checkInstalled (0);
    CHECK (robot.texts().size() == 2); // each look at it is told

    REQUIRE (file.deleteFile());
    REQUIRE (file.createDirectory().wasOk());
    checkInstalled (0);
    installation.write ("item/buildnumber.txt", " \t-12abc\n");
    checkInstalled (-12);
}

TEST_CASE ("an item is held against the program's date first, then against the installation folder")
{
    const temporaryInstallation installation;
    installation.write ("outside/item/buildnumber.txt", "9");
    installation.write ("inside/a/b/buildnumber.txt", "9");
    installationFolder += "/inside";
    const auto outside = installationFolder + "/../outside/item";

    CHECK (decide (9, outside, "150407") == itemDecision::blocked);
    CHECK (decide (9, installationFolder + "/item", "150406") == itemDecision::needed);
    CHECK (decide (9, installationFolder + "/a\\b") == itemDecision::current);
    CHECK (decide (9, outside) == itemDecision::misplaced);
    CHECK (decide (9, installationFolder + "/") == itemDecision::misplaced);
}

#if ! JUCE_WINDOWS
TEST_CASE ("a pipe where an item should be is not waited for")
{
    const temporaryInstallation installation;

    for (auto* path : { "file", "file.sa", "folder/buildnumber.txt" })
    {
        const auto pipe = installation.write (path, "");
        REQUIRE (pipe.deleteFile());
        REQUIRE (mkfifo (pipe.getFullPathName().toRawUTF8(), 0600) == 0);
    }

    CHECK (decide (-1, installationFolder + "/file") == itemDecision::needed);
    CHECK (decide (1, installationFolder + "/folder") == itemDecision::needed);
}
#endif
