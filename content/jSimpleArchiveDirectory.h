#pragma once

#include "content/jSimpleArchive.h"

/** Serves an ordinary folder through the interface of a packed archive. Nothing is remembered but the path:
    every answer is the folder's state at that moment. */
class jSimpleArchiveDirectory : public jSimpleArchive
{
public:
    bool isDirectory() const override;

    /** The folder's path as it was given. */
    juce::String getArchivePath() const override;

    /** As for an archive, with the names of the folder's files and sub-folders, not of what lies deeper, in
        alphabetical order. */
    void findEntries (const juce::String& pattern, juce::StringArray& results) const override;

    /** Takes an absolute path. Returns whether a folder is there now. */
    bool open (const juce::String& path) override;

    /** Whether the folder exists now. */
    bool isValid() const override;

    /** As for an archive. A name is a path below the folder, its parts separated by slashes or backslashes;
        one that leads out of the folder is not found. Where a file's own name may hold a backslash, it is found by
        that name too. Upper and lower case are the file system's matter. A file that cannot be read gives an empty
        stream. */
    std::unique_ptr<juce::InputStream> createInputStreamFor (const juce::String& name,
                                                             int maximum = wholeEntry) const override;

    /** Whether there is such a file below the folder, or an entry of that name in `fallback`. */
    bool contains (const juce::String& name) const override;

private:
    /** The file of that name, or no file at all. */
    juce::File findFile (const juce::String& name) const;

    juce::String folderPath;
    juce::File folder;
};
