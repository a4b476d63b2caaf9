#pragma once

#include <juce_gui_basics/juce_gui_basics.h>
#include <vector>

/** Where the open dialogs' shadowed rectangles lie, at most one for each overlay. Message thread only. */
class dialogRectTable
{
public:
    struct entry
    {
        juce::Array<int> path; /**< Child indices from the top-level component down to the overlay. */
        const juce::Component* overlay;
        juce::Rectangle<int> area; /**< In the overlay. */
    };

    /** Adds an entry in place of the one that the overlay had. */
    static void record (const entry&);

    /** Forgets an overlay; nothing when it has no entry. */
    static void remove (const juce::Component& overlay);

    static const std::vector<entry>& getEntries() { return entries; }

private:
    static std::vector<entry> entries;
};
