#include "content/itemDecision.h"
#include "tests/support/script.h"
#include <catch2/catch.hpp>

#if ! JUCE_WINDOWS
    #include <sys/stat.h>
#endif

namespace
{
/** An installation folder in which items are looked for. */
struct installedItems : scene
{
    installedItems()
    {
        acts["remove"] = [this] (auto& a) { REQUIRE (installation.folder.getChildFile (a[0]).deleteFile()); };
        acts["decide"] = [this] (auto& a) { decide (a[0], a[1].getIntValue(), a[2]); };
#if ! JUCE_WINDOWS
        acts["pipe"] = [this] (auto& a) {
            REQUIRE (mkfifo ((installation.path + "/" + a[0]).toRawUTF8(), 0600) == 0);
        };
#endif
    }

    /** Decides about an item of a build below a folder of the installation, with the program that it requires. */
    void decide (const juce::String& target, int build, const juce::String& requirement)
    {
        static const char* const names[] = { "blocked", "misplaced", "current", "needed" };
        const auto folder = installation.path + "/items";
        events.add (names[(int) decideItem ({ {}, folder + target, {}, build, requirement }, folder)]);
    }
};
}

TEST_CASE ("whether an item is needed is decided as the script says")
{
    playScript ("item-decision-script", [] { return std::make_unique<installedItems>(); });
}
