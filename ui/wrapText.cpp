#include "ui/wrapText.h"

/** How many characters of a word that is too wide go on a line of their own: at least one. */
static int charactersThatFit (const juce::String& word, const juce::Font& font, float width)
{
    int fitting = 1, tooMany = word.length();

    while (tooMany - fitting > 1)
    {
        const auto middle = (fitting + tooMany) / 2;
        (font.getStringWidthFloat (word.substring (0, middle)) <= width ? fitting : tooMany) = middle;
    }

    const auto afterSeparator = word.substring (0, fitting).lastIndexOfAnyOf ("/\\-") + 1;
    return afterSeparator > fitting / 2 ? afterSeparator : fitting;
}

juce::StringArray wrapText (const juce::String& text, const juce::Font& font, float width)
{
    const auto fits = [&] (const juce::String& line) { return font.getStringWidthFloat (line) <= width; };
    juce::StringArray lines;

    for (auto& paragraph : juce::StringArray::fromLines (text))
    {
        juce::String line;

        for (auto word : juce::StringArray::fromTokens (paragraph.replaceCharacter ('\t', ' '), " ", {}))
        {
            const auto longer = line.isEmpty() ? word : line + " " + word;

            if (fits (longer))
            {
                line = longer;
                continue;
            }

            if (line.isNotEmpty())
                lines.add (line);

            while (! fits (word) && word.length() > 1)
            {
                const auto count = charactersThatFit (word, font, width);
                lines.add (word.substring (0, count));
                word = word.substring (count);
            }

            line = word;
        }

        lines.add (line);
    }

    return lines;
}
