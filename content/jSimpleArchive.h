#pragma once

#include <array>
#include <deque>
#include <juce_core/juce_core.h>
#include <limits>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

/** Reads a packed archive (".sa"): a file of named entries, some of them scrambled.

    All numbers are little-endian words of 4 bytes; offsets count from the start of the file.

        offset  size  field                                        in versions
             0     4  version: 1, 2, 3 or 4                        all
             4     4  number of entries, signed                    all
             8   148  header block, its meaning is the store's     2, 3, 4
           156     4  scramble key word                            3, 4
           160     4  scramble index base                          3, 4

    Then the directory, at once: at 8 in version 1, at 156 in version 2, at 164 in versions 3 and 4. One record
    of 72 bytes for each entry, of 264 bytes in version 3:

        offset    size      field
             0    60 (252)  name, UTF-8, up to its zero byte or the field's end
            60 (252)     4  scrambled: any other value than 0 is yes
            64 (256)     4  size of the entry's bytes, signed
            68 (260)     4  offset of the entry's bytes, signed

    Entries are neither compressed nor checked. In versions 3 and 4 the bytes of a scrambled entry went through
    applyKeystream with the key word as the left counter and, as the right one, the entry's position in the
    directory (the first is 0) plus the index base; in versions 1 and 2 the flag has no meaning.

    Nothing in a file is trusted: entries are the records that lie wholly in the file, whatever number it
    announces, at most 1,048,576 of them, and an entry's bytes are what lies in the file of them. What there is no
    memory for is not there.

    Every read opens the file anew, so the file may be replaced in between; the directory is read once. */
class jSimpleArchive
{
public:
    jSimpleArchive() = default;
    virtual ~jSimpleArchive() = default;

    /** Whether the reader serves a folder. */
    virtual bool isDirectory() const;

    /** The path it was opened on, empty before. */
    virtual juce::String getArchivePath() const;

    /** Appends the names that match a pattern of * and ?, case ignored, in directory order, then those of
        `fallback`. */
    virtual void findEntries (const juce::String& pattern, juce::StringArray& results) const;

    /** Opens an archive file by its absolute path, once in the reader's life: later calls change nothing.
        Returns false, and the reader stays invalid, for a file that cannot be opened or has an unknown version;
        the latter is reported in a message box when the path ends with ".sa". An archive without entries opens
        well, but is not valid. */
    virtual bool open (const juce::String& path);

    /** As many bytes as an entry can have. */
    static constexpr int wholeEntry = std::numeric_limits<int>::max();

    /** Whether it was opened without an error and holds an entry. */
    virtual bool isValid() const;

    /** Copies 16 bytes, from file position 8 + offset, into the caller's buffer; zeros where the header block
        and the two words after it, or what there is of them in the file, do not reach. */
    virtual void readHeaderBytes (void* buffer, int offset) const;

    /** A stream over a copy of the entry's bytes, owned by the caller; null when neither this reader nor
        `fallback` has the entry. Names are compared exactly; of two equal ones the first counts. The stream
        ends early where the file does, and after `maximum` bytes, and is empty for a negative size or offset. */
    virtual std::unique_ptr<juce::InputStream> createInputStreamFor (const juce::String& name,
                                                                     int maximum = wholeEntry) const;

    /** Whether this reader or `fallback` has an entry of exactly this name. */
    virtual bool contains (const juce::String& name) const;

    /** Asked for whatever is not found here; not owned, may be null. Must not lead back to this reader. */
    jSimpleArchive* fallback = nullptr;

protected:
    /** The file of an absolute path; no file at all for any other, which would mean something below the current
        folder. */
    static juce::File absoluteFile (const juce::String& path);

    /** What a file holds of `size` bytes from `offset` on: less, or nothing, where it does not reach or cannot
        be read, or where there is no memory for it. One read into one block. */
    static juce::MemoryBlock readPiece (juce::FileInputStream& stream, juce::int64 offset, juce::int64 size);

private:
    struct ArchiveEntry
    {
        std::string_view name; /**< Into `directory` or `repairedNames`. */
        juce::uint32 hash;     /**< Of the name. Saves looks at names, which lie far apart. */
        int size;
        int offset;
        bool scrambled;
    };

    struct versionLayout;

    /** Null for a version that does not exist. */
    static const versionLayout* layoutOf (int version);

    /** Makes `entries` of the records in `directory`. */
    void readEntries (const versionLayout& layout, int announced);

    std::string_view nameIn (const char* field, size_t fieldSize);

    void buildIndex();

    /** Where a name is in the index, or the free slot where it would be. */
    size_t slotOf (std::string_view name, juce::uint32 hash) const;

    /** Position in `entries`, or -1. */
    int findEntry (const juce::String& name) const;

    bool failed = false;
    int version = -1;                      /**< None until an archive was opened. */
    std::array<char, 156> header{};        /**< From offset 8 of the file on, as far as the version has it. */
    juce::MemoryBlock directory;           /**< As it was read. The names of the entries point into it. */
    std::deque<std::string> repairedNames; /**< Names that were not well-formed, as entries see them. */
    std::vector<ArchiveEntry> entries;
    std::vector<int> index; /**< Open hash table of positions in `entries`, -1 where free; its size is a power
                                 of two. */
    juce::String archivePath;

    JUCE_DECLARE_NON_COPYABLE (jSimpleArchive)
};
