#include "tests/support/script.h"
#include "tests/support/expectedText.h"
#include "tests/support/waiting.h"
#include "ui/lookAndFeelKlangora.h"
#include <catch2/catch.hpp>

/** What came of an act since `shown` was to be seen, which becomes what is to be seen now. */
static juce::StringArray outcomeOf (scene& played, juce::StringArray& shown, int& boxes)
{
    auto outcome = std::exchange (played.events, {});
    const auto before = std::exchange (shown, played.look());

    for (auto& call : std::exchange (played.owner.calls, {}))
        outcome.add ("owner: " + call);

    while (boxes < played.robot.texts().size())
        outcome.add ("box: " + played.robot.texts()[boxes++]);

    for (auto& line : shown)
        if (! before.contains (line))
            outcome.add (line);

    for (auto& line : outcome)
        line = plainLine (line);

    return outcome;
}

/** Does what the lines of a scene say, and writes down what comes of it. */
static juce::String play (scene& played, const juce::StringArray& lines)
{
    auto shown = played.look();
    auto text = lines[0] + "\n";
    int boxes = 0;

    for (auto& line : lines)
    {
        if (! line.startsWith ("> "))
            continue;

        INFO (line);
        auto words = juce::StringArray::fromTokens (line.substring (2), "|", {});
        words.trim();
        REQUIRE (played.acts.count (words[0]) == 1);
        const auto& act = played.acts.at (words[0]);
        words.remove (0);
        act (words);
        drainMessages();
        text << line << "\n";

        for (auto& came : outcomeOf (played, shown, boxes))
            text << came << "\n";
    }

    return text;
}

void playScript (const juce::String& name, const std::function<std::unique_ptr<scene>()>& begin)
{
    const auto scenes = "\n" + loadExpected (name);

    for (int start = 0, end = 0; end >= 0; start = end)
    {
        end = scenes.indexOf (start + 1, "\n# ");
        const auto expected = scenes.substring (start + 1, end < 0 ? scenes.length() : end);
        const auto lines = juce::StringArray::fromLines (expected);

#if JUCE_WINDOWS
        if (lines[0].startsWith ("# On Linux: "))
            continue;
#endif

        DYNAMIC_SECTION (lines[0]) // for each of which the framework starts anew
        {
            lookAndFeelKlangora::install();
            checkExpected (name, play (*begin(), lines), expected);
        }
    }
}
