#include "base/safeFileWriter.h"
#include "base/privateFile.h"

#if JUCE_WINDOWS
    #include <windows.h>
#else
    #include <cstdio>
#endif

/** Renames a file over another, which stays as it is when that fails. The framework's own replacement is not used:
    where a plain rename fails it falls back on copying over the target, or may leave none. */
static bool renameOver (const juce::File& from, const juce::File& to)
{
#if JUCE_WINDOWS
    // A virus scanner may hold a new file open for a moment.
    for (int attempt = 0; attempt < 5; ++attempt)
    {
        if (MoveFileExW (from.getFullPathName().toWideCharPointer(), to.getFullPathName().toWideCharPointer(),
                         MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH))
            return true;

        juce::Thread::sleep (100);
    }

    return false;
#else
    return std::rename (from.getFullPathName().toRawUTF8(), to.getFullPathName().toRawUTF8()) == 0;
#endif
}

safeFileWriter::safeFileWriter (const juce::File& fileToReplace, readers whoMayRead)
    : target (fileToReplace)
{
    const auto sibling = target.getSiblingFile (temporaryName);

    if (target == sibling || target.isDirectory() || target.getParentDirectory().createDirectory().failed())
        return;

    temporary = sibling;
    temporary.deleteFile();

    if (whoMayRead == readers::owner && ! createPrivateFile (temporary))
        return;

    // Without a buffer of its own, every write reports what became of its bytes.
    stream = std::make_unique<juce::FileOutputStream> (temporary, 0);

    if (stream->failedToOpen() || stream->getPosition() != 0)
        stream.reset();
}

safeFileWriter::~safeFileWriter()
{
    stream.reset();
    temporary.deleteFile();
}

bool safeFileWriter::write (const void* bytes, size_t size)
{
    if (stream != nullptr && ! stream->write (bytes, size))
        stream.reset();

    written += (juce::int64) size;
    return stream != nullptr;
}

bool safeFileWriter::commit()
{
    if (stream == nullptr)
        return false;

    stream->flush();
    const auto flushed = stream->getStatus().wasOk();
    stream.reset();

    return flushed && temporary.getSize() == written && renameOver (temporary, target);
}
