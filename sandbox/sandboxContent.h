#pragma once

#include <juce_core/juce_core.h>
#include <string>
#include <vector>

/** One item that a sandbox store offers. */
struct sandboxItem
{
    std::string target; /**< Path below the installation folder, forward slashes. */
    std::string name;
    std::string buildnumber;          /**< Decimal; empty: the catalogue says nothing of it. */
    std::string builddaterequirement; /**< YYMMDD; empty: the catalogue says nothing of it. */
    juce::MemoryBlock bytes;          /**< The file on offer; empty where it is never sent. */
    bool firstDownloadIsCutShort = false;
};

/** What a sandbox store offers. Seen from the installation that installSandbox prepares, its items come to every
    end that an item can come to: missing, out of date, current as a packed archive and as a folder, only for a
    newer program, one whose first download breaks off, and one of some 30 MB. They are packed archives of all four
    versions, scrambled entries included, and the same bytes each time. */
std::vector<sandboxItem> makeSandboxItems();

/** A number of small items that are missing from every installation. */
std::vector<sandboxItem> makeSmallSandboxItems (int count);

/** Prepares an installation of the product below a folder: interface data with the skin at `skin`, and the
    installed items. Creates the folder; replaces what is there of its own files and leaves everything else.
    Returns a message for the user, empty on success. */
juce::String installSandbox (const juce::File& folder, const juce::File& skin);

/** Writes each item on offer to its target below a folder, to compare downloads with. Returns a message for the
    user, empty on success. */
juce::String exportSandboxItems (const juce::File& folder);
