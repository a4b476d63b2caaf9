#include "base/safeFileWriter.h"

#if JUCE_WINDOWS
    #include <windows.h>
#else
    #include <unistd.h>
#endif

/** Makes a folder with its ancestors and returns those that were missing, the outermost first. */
static juce::Array<juce::File> createFolder (const juce::File& folder)
{
    if (folder.exists())
        return {};

    const auto parent = folder.getParentDirectory();
    auto created = parent != folder ? createFolder (parent) : juce::Array<juce::File>();

    if (folder.createDirectory().wasOk())
        created.add (folder);

    return created;
}

/** Removes a folder that holds nothing. */
static void removeEmptyFolder (const juce::File& folder)
{
#if JUCE_WINDOWS
    RemoveDirectoryW (folder.getFullPathName().toWideCharPointer());
#else
    ::rmdir (folder.getFullPathName().toRawUTF8());
#endif
}

safeFileWriter::safeFileWriter (const juce::File& fileToReplace, readers whoMayRead)
    : target (fileToReplace)
{
    if (target.isDirectory() || target == juce::File())
        return;

    const auto folder = target.getParentDirectory();
    newFolders = createFolder (folder);

    if (newFolders.isEmpty())
        temporaryFile::removeAbandoned (folder);

    temporary = std::make_unique<temporaryFile> (folder, whoMayRead);
}

safeFileWriter::~safeFileWriter()
{
    temporary.reset();

    for (int i = newFolders.size(); --i >= 0;)
        removeEmptyFolder (newFolders.getReference (i));
}

bool safeFileWriter::write (const void* bytes, size_t size)
{
    if (temporary != nullptr && ! temporary->write (bytes, size))
        temporary.reset();

    return temporary != nullptr;
}

bool safeFileWriter::commit()
{
    const auto done = temporary != nullptr && temporary->replace (target.getFileName());

    if (done)
        newFolders.clear();

    temporary.reset();
    return done;
}
