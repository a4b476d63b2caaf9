#pragma once

#include <juce_core/juce_core.h>
#include <memory>

/** Replaces a file wholly or not at all. What is written goes into a temporary file in the target's folder; only
    when every byte of it is known to be on the disk does it take the target's place, in one step of the file
    system. Until then, and after any failure, an earlier file stays as it was, byte for byte; a crash or a power
    cut leaves the old file or the new one.

    The first failure sticks: later calls do nothing and answer false. */
class safeFileWriter
{
public:
    /** Who may read the new file, from its first byte on. */
    enum class readers
    {
        everybody, /**< Whom the system's defaults let. */
        owner      /**< The user who runs the program. */
    };

    /** Starts a temporary file beside `target`, whose parent folders are created where they are missing. A
        target that is a folder is a failure. */
    explicit safeFileWriter (const juce::File& target, readers = readers::everybody);

    /** Removes the temporary file, if there still is one. */
    ~safeFileWriter();

    /** Appends to what will be the content. */
    bool write (const void* bytes, size_t size);

    /** Puts the new content in place. False when anything failed since the writer was made. Nothing can be
        written afterwards. */
    bool commit();

    /** Name of the temporary file. It is short, so that the longest target name works, and always the same, so
        that what a killed program left behind goes with the next download into that folder. */
    static constexpr const char* temporaryName = "rigmart.tmp";

private:
    const juce::File target;
    juce::File temporary;                           // none until it is ours to remove
    std::unique_ptr<juce::FileOutputStream> stream; // null once something failed, or all is done
    juce::int64 written = 0;

    JUCE_DECLARE_NON_COPYABLE (safeFileWriter)
};
