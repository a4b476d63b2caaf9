#pragma once

#include "tests/support/alertRobot.h"
#include "tests/support/recordingListener.h"
#include <map>
#include <memory>

/** What one scene of a script happens to: a page, a dialog or a service, set up anew for it, with its owner
    and with a person at the message boxes. */
struct scene
{
    virtual ~scene() = default;

    alertRobot robot;
    recordingListener owner;

    /** What can be done, by the word that a script has for it. What stands behind the word, between bars,
        are the arguments; one that is missing is "". */
    std::map<juce::String, std::function<void (const juce::StringArray& arguments)>> acts;

    /** What shows now, line by line. */
    virtual juce::StringArray look() { return {}; }

    /** What happened, other than messages to the owner and boxes. */
    juce::StringArray events;
};

/** Plays tests/expected/NAME.txt: "# ..." begins a scene, "> open | A | B" is something that a person, the
    owner or the server does, and below it stands all that came of it: events, what the owner was told or
    asked, boxes, and what shows that did not before. This run's outcome is compared with that, as every
    expected text is. Each scene is a section of the test, with a framework of its own and the program's look
    and feel; one that begins with "# On Linux: " is left out on Windows. */
void playScript (const juce::String& name, const std::function<std::unique_ptr<scene>()>& begin);
