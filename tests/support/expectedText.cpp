#include "tests/support/expectedText.h"
#include <catch2/catch.hpp>

/** The lines that only one of two texts has. */
static juce::String linesOnlyIn (const juce::StringArray& lines, const juce::StringArray& others,
                                 const juce::String& mark)
{
    juce::String result;

    for (auto& line : lines)
        if (! others.contains (line))
            result << mark << line << "\n";

    return result;
}

void checkExpected (const juce::String& name, const juce::String& text)
{
    const auto file = juce::File (EXPECTED_FOLDER).getChildFile (name + ".txt");
    const auto found = juce::File (FOUND_FOLDER).getChildFile (name + ".txt");
    const auto expected = file.loadFileAsString();

    if (text == expected)
    {
        found.deleteFile();
        return;
    }

    REQUIRE ((found.create().wasOk() && found.replaceWithText (text, false, false, "\n")));
    const auto before = juce::StringArray::fromLines (expected), now = juce::StringArray::fromLines (text);
    const auto difference = linesOnlyIn (before, now, "- ") + linesOnlyIn (now, before, "+ ");
    FAIL_CHECK ("tests/expected/" << name << ".txt says (-) and this is (+):\n"
                                  << (difference.isEmpty() ? "the same lines in another order" : difference));
}
