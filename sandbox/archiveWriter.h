#pragma once

#include <juce_core/juce_core.h>
#include <optional>
#include <string>
#include <vector>

/** Writes packed archives, right ones and, where a field is set, wrong ones. An unknown version is laid out as
    version 4. */
struct archiveWriter
{
    struct entry
    {
        std::string name; /**< Cut at the end of its field, then without a zero byte. */
        std::string bytes;
        bool scrambled = false;         /**< Takes effect in versions 3 and later. */
        std::optional<int> wrongSize{}; /**< Written in place of the right one, as is the next. */
        std::optional<int> wrongOffset{};
    };

    juce::uint32 version = 4;
    std::vector<entry> entries{};
    std::optional<int> wrongCount{}; /**< Written in place of the right number of entries. */
    juce::uint32 keyWord = 0;
    juce::uint32 indexBase = 0;
    std::string header{}; /**< Start of the header block; the rest is zeros. */

    /** The whole file. */
    juce::MemoryBlock write() const;
};
