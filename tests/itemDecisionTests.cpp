#include "app/installationPaths.h"
#include "content/itemDecision.h"
#include "sandbox/archiveWriter.h"
#include "tests/support/alertRobot.h"
#include "tests/support/temporaryInstallation.h"
#include <catch2/catch.hpp>

#if ! JUCE_WINDOWS
    #include <sys/stat.h>
    #include <unistd.h>
#endif

static itemDecision decide (int build, const juce::String& target, const char* requirement = "000000")
{
    return decideItem ({ {}, target, {}, build, requirement }, installationFolder);
}

TEST_CASE ("an item is current up to the build that is installed at its target")
{
    temporaryInstallation installation;
    const auto target = installationFolder + "/item";
    const auto isInstalled = [&] (int build) {
        return decide (build, target) == itemDecision::current
               && decide (build + 1, target) == itemDecision::needed;
    };
    const auto archiveOf = [] (const char* build, juce::uint32 version) {
        return archiveWriter{ version, { { "other", "99" }, { "buildnumber.txt", build, true } } }.write();
    };
    CHECK (decide (-1, target) == itemDecision::needed);

    // A packed archive under the target's own name; another file is as good as none.
    installation.write ("item", archiveOf ("7", 1));
    CHECK (isInstalled (7));
    installation.write ("item", "no archive");
    CHECK (decide (-1, target) == itemDecision::needed);

    // An archive ".sa" wins over that, even a damaged one.
    installation.write ("item.sa", archiveOf ("12", 4));
    CHECK (isInstalled (12));
    alertRobot robot;
    installation.write ("item.sa", archiveOf ("12", 5));
    CHECK ((isInstalled (0) && robot.texts().size() == 2)); // each look at it is told

    // A folder wins over both, and its text may hold anything.
    REQUIRE ((juce::File (target).deleteFile() && juce::File (target).createDirectory().wasOk()));
    CHECK (isInstalled (0));
    installation.write ("item/buildnumber.txt", " \t-12abc\n");
    CHECK (isInstalled (-12));
}

TEST_CASE ("an item is held against the program's date first, then against the installation folder")
{
    temporaryInstallation installation;
    installation.write ("outside/item/buildnumber.txt", "9");
    installationFolder += "/inside";
    const auto inside = installationFolder + "/item", outside = installationFolder + "/../outside/item";

    CHECK (decide (9, outside, "150407") == itemDecision::blocked);
    CHECK (decide (9, inside, "150406") == itemDecision::needed);

    REQUIRE (installation.write ("inside/a/b/buildnumber.txt", "9").existsAsFile());
    CHECK (decide (9, installationFolder + "/a\\b") == itemDecision::current);

    for (auto& target : { outside, installationFolder + "item", installationFolder + "/" })
        CHECK (decide (9, target) == itemDecision::misplaced);

    installationFolder = "relative";
    CHECK (decide (9, "relative/item") == itemDecision::misplaced);
}

#if ! JUCE_WINDOWS
TEST_CASE ("a pipe or an endless file where an item should be is not waited for")
{
    temporaryInstallation installation;
    alertRobot robot; // an endless ".sa" without a version is one of an old version
    const auto target = installationFolder + "/item";
    const auto makePipe = [] (const juce::String& path) { REQUIRE (mkfifo (path.toRawUTF8(), 0600) == 0); };
    const auto makeEndless = [&] (const juce::String& name, const juce::MemoryBlock& start) {
        const auto path = installation.write (name, start).getFullPathName();
        REQUIRE (truncate (path.toRawUTF8(), (off_t) 1 << 42) == 0);
        return juce::File (path);
    };

    makePipe (target);
    makePipe (target + ".sa");
    CHECK (decide (-1, target) == itemDecision::needed);
    REQUIRE ((juce::File (target + ".sa").deleteFile() && juce::File (target).deleteFile()));

    // Zeros have no version; a hostile head announces all the entries there can be, and all the bytes.
    archiveWriter hostile{ 4, { { "buildnumber.txt", "7", false, std::numeric_limits<int>::max() } } };
    CHECK (decide (7, makeEndless ("item", hostile.write()).getFullPathName()) == itemDecision::current);
    hostile.wrongCount = std::numeric_limits<int>::max();

    for (auto& start : { juce::MemoryBlock(), hostile.write() })
        for (auto* name : { "item", "item.sa" })
            decide (0,
                    makeEndless (name, start).getFullPathName().upToLastOccurrenceOf (".sa", false, false));

    REQUIRE ((juce::File (target).deleteFile() && juce::File (target).createDirectory().wasOk()));
    makePipe (target + "/buildnumber.txt");
    CHECK (decide (1, target) == itemDecision::needed);
    REQUIRE (juce::File (target + "/buildnumber.txt").deleteFile());
    makeEndless ("item/buildnumber.txt", { "7\n", 2 });
    CHECK (decide (7, target) == itemDecision::current);
}
#endif
