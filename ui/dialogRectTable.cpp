#include "ui/dialogRectTable.h"
#include <algorithm>

std::vector<dialogRectTable::entry> dialogRectTable::entries;

void dialogRectTable::record (const entry& newEntry)
{
    remove (*newEntry.overlay);
    entries.push_back (newEntry);
}

void dialogRectTable::remove (const juce::Component& overlay)
{
    entries.erase (std::remove_if (entries.begin(), entries.end(),
                                   [&] (const entry& e) { return e.overlay == &overlay; }),
                   entries.end());
}
