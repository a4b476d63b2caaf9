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
#if ! JUCE_WINDOWS
        acts["pipe"] = [this] (auto& a) {
            REQUIRE (mkfifo ((installation.path + "/" + a[0]).toRawUTF8(), 0600) == 0);
        };
#endif
        acts["decide"] = [this] (auto& a) { // about a target, a build and the program that it requires
            static const char* const names[] = { "blocked", "misplaced", "current", "needed" };
            const auto folder = installation.path + "/items";
            const DownloadItem item{ {}, folder + a[0], {}, a[1].getIntValue(), a[2] };
            events.add (names[(int) decideItem (item, folder)]);
        };
    }
};
}

TEST_CASE ("whether an item is needed is decided as the script says")
{
    playScript ("item-decision-script", [] { return std::make_unique<installedItems>(); });
}
