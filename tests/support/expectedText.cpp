#include "tests/support/expectedText.h"
#include "app/installationPaths.h"
#include "net/storeAddress.h"
#include <catch2/catch.hpp>

static juce::File fileIn (const char* folder, const juce::String& name)
{
    return juce::File (folder).getChildFile (name + ".txt");
}

juce::String loadExpected (const juce::String& name)
{
    return fileIn (EXPECTED_FOLDER, name).loadFileAsString();
}

juce::String plainLine (const juce::String& text)
{
    const auto line = text.replace (storeAddress(), "STORE").replace ("\n", "\\n");
    return installationFolder.isEmpty() ? line : line.replace (installationFolder, "FOLDER");
}

/** The first lines that differ, below those before them. */
static juce::String firstDifference (const juce::StringArray& expected, const juce::StringArray& found)
{
    int line = 0;

    while (line < expected.size() && expected[line] == found[line])
        ++line;

    return expected.joinIntoString ("\n", 0, line) + "\n- " + expected[line] + "\n+ " + found[line];
}

void checkExpected (const juce::String& name, const juce::String& text, const juce::String& part)
{
    const auto whole = loadExpected (name);
    const auto expected = part.isEmpty() ? whole : part;
    const auto file = fileIn (FOUND_FOLDER, name);

    if (whole.startsWith (expected)) // what an earlier run has found counts no more
        file.deleteFile();

    if (text == expected)
        return;

    const auto found = file.existsAsFile() ? file.loadFileAsString() : whole;
    REQUIRE (file.create().wasOk());
    REQUIRE (file.replaceWithText (part.isEmpty() ? text : found.replace (part, text), false, false, "\n"));
    FAIL_CHECK ("tests/expected/" << name << ".txt says (-) and this is (+):\n"
                                  << firstDifference (juce::StringArray::fromLines (expected),
                                                      juce::StringArray::fromLines (text)));
}
