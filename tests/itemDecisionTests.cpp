#include "app/installationPaths.h"
#include "content/itemDecision.h"
#include "sandbox/archiveWriter.h"
#include "tests/support/alertRobot.h"
#include "tests/support/temporaryInstallation.h"
#include <catch2/catch.hpp>

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

    for (auto& target : { outside, installationFolder + "item", installationFolder + "/" })
        CHECK (decide (9, target) == itemDecision::misplaced);

    installationFolder = "relative";
    CHECK (decide (9, "relative/item") == itemDecision::misplaced);
}
