#pragma once

#include <juce_core/juce_core.h>
#include <memory>

/** A file that is being written under a name of its own until it takes another one's place.

    Its name is made up, and tells by a check inside it that it is one of ours; it is made only where nothing has that
    name, whatever kind of thing. While the object lives the file is locked (on Windows: not shared), which is how any
    program can tell one that is being written from one that a killed program left. */
class temporaryFile
{
public:
    /** Who may read the file, from its first byte on. */
    enum class readers
    {
        everybody, /**< Whom the system's defaults let. */
        owner      /**< The user who runs the program. */
    };

    /** Makes an empty file in a folder that exists. */
    temporaryFile (const juce::File& folder, readers);

    /** Removes the file, unless it took another one's place. */
    ~temporaryFile();

    /** Whether there is a file; else all that follows fails. */
    bool isOpen() const { return file != nullptr; }

    /** Appends. False when not all of it was taken. */
    bool write (const void* bytes, size_t size);

    /** Takes the place of what has this name in the folder, in one step of the file system and only when every byte
        that was written is known to be on the disk. The object is done with then. */
    bool replace (const juce::String& name);

    /** Whether a file's name is one that this class makes up, in whatever case. */
    static bool isTemporaryName (const juce::String& name);

    /** Removes from a folder what programs of this user that were killed have left there of such files. What is being
        written, what another user owns and what is no ordinary file stays. */
    static void removeAbandoned (const juce::File& folder);

private:
    struct openFile; // as the system knows it

    std::unique_ptr<openFile> file;
    juce::int64 written = 0;

    JUCE_DECLARE_NON_COPYABLE (temporaryFile)
};
