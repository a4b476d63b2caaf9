#pragma once

#include <juce_gui_basics/juce_gui_basics.h>
#include <vector>

/** What became of things, one line each in the order in which it happened, for a page to paint. The newest lines show
    unless the list was scrolled back. Any number of lines costs no more to paint than the few that show. */
class outcomeList
{
public:
    /** The height of a line, in the page's units. */
    static constexpr int lineHeight = 17;

    void clear();

    /** Adds a line and scrolls to it. The outcome is a word or two, in its colour. */
    void add (const juce::String& name, const char* outcome, juce::uint32 argb);

    /** Goes back by a number of lines, or forth by a negative one, as far as there are any. */
    void scrollBack (int lines, juce::Rectangle<int> area);

    /** Paints the list into its area; with nothing in it, a text that says so. */
    void paint (juce::Graphics&, juce::Rectangle<int> area, const juce::String& textWhenEmpty) const;

private:
    struct line
    {
        juce::String name;
        const char* outcome;
        juce::uint32 argb;
    };

    static int linesIn (juce::Rectangle<int> area);

    std::vector<line> lines;
    int back = 0; // lines that lie below those that show
};
