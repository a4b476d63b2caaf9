#include "content/jSimpleArchiveDirectory.h"
#include "content/targetPath.h"

bool jSimpleArchiveDirectory::isDirectory() const
{
    return true;
}

juce::String jSimpleArchiveDirectory::getArchivePath() const
{
    return folderPath;
}

void jSimpleArchiveDirectory::findEntries (const juce::String& pattern, juce::StringArray& results) const
{
    juce::StringArray names;

    // The iterator's own patterns heed upper and lower case on some systems.
    if (isValid())
        for (const auto& child :
             juce::RangedDirectoryIterator (folder, false, "*", juce::File::findFilesAndDirectories))
            if (const auto name = child.getFile().getFileName(); name.matchesWildcard (pattern, true))
                names.add (name);

    names.sort (false);
    results.addArray (names);

    if (fallback != nullptr)
        fallback->findEntries (pattern, results);
}

bool jSimpleArchiveDirectory::open (const juce::String& path)
{
    folderPath = path;
    folder = absoluteFile (path);
    return isValid();
}

bool jSimpleArchiveDirectory::isValid() const
{
    return folder.isDirectory();
}

std::unique_ptr<juce::InputStream>
jSimpleArchiveDirectory::createInputStreamFor (const juce::String& name) const
{
    const auto file = findFile (name);

    if (file == juce::File())
        return fallback != nullptr ? fallback->createInputStreamFor (name) : nullptr;

    juce::FileInputStream stream (file);
    return std::make_unique<juce::MemoryInputStream> (readPiece (stream, 0, stream.getTotalLength()));
}

bool jSimpleArchiveDirectory::contains (const juce::String& name) const
{
    return findFile (name) != juce::File() || (fallback != nullptr && fallback->contains (name));
}

juce::File jSimpleArchiveDirectory::findFile (const juce::String& name) const
{
    if (! isAllowedTarget (name) || ! isValid())
        return {};

    const juce::File file (folder.getFullPathName() + "/" + name.replaceCharacter ('\\', '/'));
    return file.existsAsFile() ? file : juce::File();
}
