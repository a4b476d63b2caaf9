#pragma once

#include "tests/support/alertRobot.h"
#include "tests/support/person.h"
#include "tests/support/recordingListener.h"
#include "tests/support/scriptedServer.h"
#include "tests/support/temporaryInstallation.h"
#include <map>

/** What one scene of a script happens to: a page, a dialog or a window, set up anew for it, with its owner, an
    installation folder, a server that is the store and a person at the message boxes. */
struct scene
{
    scene();
    virtual ~scene() = default;

    temporaryInstallation installation;
    scriptedServer server;
    alertRobot robot;
    recordingListener owner;

    /** What can be done, by the word that a script has for it. What stands behind the word, between bars,
        are the arguments; one that is missing is "". */
    std::map<juce::String, std::function<void (const juce::StringArray& arguments)>> acts;

    /** What shows now, line by line: files and requests, and what a scene adds to them. */
    virtual juce::StringArray look();

    /** What happened, other than messages to the owner and boxes. */
    juce::StringArray events;
};

/** Plays tests/expected/NAME.txt: "# ..." begins a scene, "> open | A | B" is something that a person, the
    owner or the server does, and below it stands all that came of it: events, what the owner was told or
    asked, boxes, and what shows that did not before. Each scene is a section of the test, with a framework of
    its own; one that begins with "# On Linux: " or "# On Windows: " is for that alone. A difference fails the test; what was found
    is written below the build folder, from where `scripts/accept-expected.sh` takes it. */
void playScript (const juce::String& name, const std::function<std::unique_ptr<scene>()>& begin);
