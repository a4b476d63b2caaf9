#pragma once

#include "base/temporaryFile.h"

/** Replaces a file wholly or not at all. What is written goes into a temporary file in the target's folder; only
    when every byte of it is known to be on the disk does it take the target's place, in one step of the file
    system. Until then, and after any failure, an earlier file stays as it was, byte for byte; a crash or a power
    cut leaves the old file or the new one. Any number of programs may write into one folder at the same time.

    The first failure sticks: later calls do nothing and answer false. */
class safeFileWriter
{
public:
    using readers = temporaryFile::readers;

    /** Starts a temporary file beside `target`, whose parent folders are created where they are missing, and removes
        what programs that were killed have left there. A target that is a folder is a failure. */
    explicit safeFileWriter (const juce::File& target, readers = readers::everybody);

    /** Removes what was made on the way to a file that did not get there. */
    ~safeFileWriter();

    /** Appends to what will be the content. */
    bool write (const void* bytes, size_t size);

    /** Puts the new content in place. False when anything failed since the writer was made. Nothing can be
        written afterwards. */
    bool commit();

private:
    const juce::File target;
    juce::Array<juce::File> newFolders;       // made for the target, the outermost first
    std::unique_ptr<temporaryFile> temporary; // null once something failed, or all is done

    JUCE_DECLARE_NON_COPYABLE (safeFileWriter)
};
