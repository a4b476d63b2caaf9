#include "tests/support/installationProbe.h"
#include "app/installationPaths.h"
#include "content/store_downloads.h"
#include "sandbox/archiveWriter.h"
#include "tests/support/alertRobot.h"
#include "tests/support/scriptedServer.h"
#include "tests/support/waiting.h"
#include <catch2/catch.hpp>
#include <iostream>

juce::MemoryBlock probeItem (const char* build)
{
    const archiveWriter writer{ 4,
                                { { "buildnumber.txt", build }, { "sound", std::string (100000, *build) } } };
    return writer.write();
}

/** A store that offers both. */
struct store : genericlistener
{
    scriptedServer server;

    void handleMessage (const juce::String&, const juce::var&, const juce::var&, const juce::var&) override {}

    juce::var handleRequest (const juce::String& text, const juce::var& index, const juce::var&,
                             const juce::var&) override
    {
        const auto target = probeTargets[index];

        if (text == "dl_total")
            return probeTargets.size();

        if (text == "dl_target")
            return installationFolder + "/" + target;

        if (text == "dl_url")
            return target.isEmpty() ? juce::String() : server.origin() + "/" + target;

        if (text == "dl_name")
            return target;

        return text == "dl_buildnumber" ? juce::var (2) : juce::var ("000000");
    }
};

/** Run in a process of its own, by faultTests. It belongs to no test file, so that nobody else runs it. */
TEST_CASE ("an installation of two items in a given folder, which prints its message boxes",
           "[.installation]")
{
    installationFolder = juce::SystemStats::getEnvironmentVariable ("INSTALLATION", {});
    REQUIRE (installationFolder.isNotEmpty());
    store offer;
    alertRobot robot;
    store_downloads page (offer, installationFolder);
    auto& button = dynamic_cast<juce::Button&> (*page.getChildComponent (1));

    const auto item = probeItem ("2");
    const std::string bytes (item.begin(), item.end());

    // A current item is not asked for, which is no matter here.
    for (int i = 0; i < probeTargets.size(); ++i)
        offer.server.reply (okReply (bytes, "application/octet-stream"));

    button.triggerClick();
    waitFor ("the end of the run", [&] { return ! robot.texts().isEmpty() && button.isEnabled(); });
    drainMessages();
    std::cout << robot.texts().joinIntoString ("\n") << std::endl;
}
