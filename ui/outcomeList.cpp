#include "ui/outcomeList.h"
#include "ui/palette.h"

static constexpr int listMargin = 6, outcomeWidth = 90;
static constexpr int longestName = 1000; // painting costs what a text is long, not what of it shows
static constexpr float lineFontHeight = 13.0f, corner = 4.0f;

int outcomeList::linesIn (juce::Rectangle<int> area)
{
    return juce::jmax (1, (area.getHeight() - 2 * listMargin) / lineHeight);
}

void outcomeList::clear()
{
    lines.clear();
    back = 0;
}

void outcomeList::add (const juce::String& name, const char* outcome, juce::uint32 argb)
{
    lines.push_back ({ name.substring (0, longestName), outcome, argb });
    back = 0;
}

void outcomeList::scrollBack (int linesToScroll, juce::Rectangle<int> area)
{
    back = juce::jlimit (0, juce::jmax (0, (int) lines.size() - linesIn (area)), back + linesToScroll);
}

void outcomeList::paint (juce::Graphics& g, juce::Rectangle<int> area,
                         const juce::String& textWhenEmpty) const
{
    g.setColour (juce::Colour (palette::well));
    g.fillRoundedRectangle (area.toFloat(), corner);
    g.setColour (juce::Colour (palette::faintLine));
    g.drawRoundedRectangle (area.toFloat().reduced (0.5f), corner, 1.0f);
    g.setFont (juce::Font (lineFontHeight));

    if (lines.empty())
    {
        g.setColour (juce::Colour (palette::quietText));
        g.drawText (textWhenEmpty, area, juce::Justification::centred, true);
        return;
    }

    const auto last = (int) lines.size() - back;
    auto rows = area.reduced (2 * listMargin, listMargin);

    for (auto i = juce::jmax (0, last - linesIn (area)); i < last; ++i)
    {
        const auto& shown = lines[(size_t) i];
        auto row = rows.removeFromTop (lineHeight);
        g.setColour (juce::Colour (shown.argb));
        g.drawText (shown.outcome, row.removeFromRight (outcomeWidth), juce::Justification::centredRight,
                    true);
        g.setColour (juce::Colour (palette::text));
        g.drawText (shown.name, row, juce::Justification::centredLeft, true);
    }
}
