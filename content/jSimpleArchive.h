#pragma once

#include <array>
#include <juce_core/juce_core.h>
#include <memory>
#include <unordered_map>
#include <vector>

/** Reads a packed archive (".sa"). (The format's documentation comes here.) */
class jSimpleArchive
{
public:
    jSimpleArchive() = default;
    virtual ~jSimpleArchive() = default;

    /** Whether the reader serves a folder. */
    virtual bool isDirectory() const;

    /** The path it was opened on, empty before. */
    virtual juce::String getArchivePath() const;

    /** Appends the names that match a wildcard pattern, case ignored, then those of `fallback`. */
    virtual void findEntries (const juce::String& pattern, juce::StringArray& results) const;

    /** Opens an archive file, once in the reader's life: later calls do nothing. A file that cannot be opened
        or has an unknown version leaves the reader invalid; the latter is reported when its path ends with
        ".sa". Returns false when this call failed to open the archive. */
    virtual bool open (const juce::String& path);

    /** Whether it was opened without an error and holds an entry. */
    virtual bool isValid() const;

    /** Copies 16 bytes of the header block, from file position 8 + offset, into the caller's buffer; zeros
        where the block does not reach. */
    virtual void readHeaderBytes (void* buffer, int offset) const;

    /** A stream over a copy of the entry's bytes, owned by the caller; null when neither this reader nor
        `fallback` has the entry. */
    virtual std::unique_ptr<juce::InputStream> createInputStreamFor (const juce::String& name) const;

    /** Whether this reader or `fallback` has an entry of exactly this name. */
    virtual bool contains (const juce::String& name) const;

    /** Asked for whatever is not found here; not owned, may be null. */
    jSimpleArchive* fallback = nullptr;
};
