#include "content/jSimpleArchiveDirectory.h"
#include "base/ordinaryFile.h"
#include "content/targetPath.h"

#if ! JUCE_WINDOWS
    #include "base/validText.h"
    #include <dirent.h>
#endif

/** Whether a part of a name means something in the folder that it is looked up in: neither that folder, nor the one
    above, nor what Windows sees in some names. */
static bool isPlainName (const juce::String& part)
{
#if JUCE_WINDOWS
    return ! part.containsChar (':') && ! part.endsWithChar ('.') && ! part.endsWithChar (' ')
           && ! isDeviceName (part);
#else
    return part != "." && part != "..";
#endif
}

/** The names of a folder's files and sub-folders. One that is no text, which no text could find, is left out. */
static juce::StringArray namesIn (const juce::File& folder)
{
    juce::StringArray names;

#if JUCE_WINDOWS
    for (const auto& child :
         juce::RangedDirectoryIterator (folder, false, "*", juce::File::findFilesAndDirectories))
        names.add (child.getFile().getFileName());
#else
    // The framework's iterator makes texts of whatever bytes a name has.
    if (auto* entries = ::opendir (folder.getFullPathName().toRawUTF8()))
    {
        while (const auto* entry = ::readdir (entries))
            if (isValidText (entry->d_name, std::strlen (entry->d_name)))
                if (const auto name = juce::String::fromUTF8 (entry->d_name); isPlainName (name))
                    names.add (name);

        ::closedir (entries);
    }
#endif

    return names;
}

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

    for (auto& name : namesIn (folder))
        if (name.matchesWildcard (pattern, true))
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

std::unique_ptr<juce::InputStream> jSimpleArchiveDirectory::createInputStreamFor (const juce::String& name,
                                                                                  int maximum) const
{
    const auto file = findFile (name);

    if (file == juce::File())
        return fallback != nullptr ? fallback->createInputStreamFor (name, maximum) : nullptr;

    juce::FileInputStream stream (file);
    return std::make_unique<juce::MemoryInputStream> (readPiece (stream, 0, maximum));
}

bool jSimpleArchiveDirectory::contains (const juce::String& name) const
{
    return findFile (name) != juce::File() || (fallback != nullptr && fallback->contains (name));
}

juce::File jSimpleArchiveDirectory::findFile (const juce::String& name) const
{
    juce::StringArray parts;
    parts.addTokens (name, "/\\", {});
    parts.removeEmptyStrings (false);

    if (parts.isEmpty() || ! isValid() || ! std::all_of (parts.begin(), parts.end(), isPlainName))
        return {};

    auto file = juce::File (folder.getFullPathName() + "/" + parts.joinIntoString ("/"));

    if (isOrdinaryFile (file))
        return file;

#if ! JUCE_WINDOWS
    // Elsewhere a backslash may also be part of a name, which is listed as it is.
    if (auto child = juce::File (folder.getFullPathName() + "/" + name);
        name.containsChar ('\\') && ! name.containsChar ('/') && isOrdinaryFile (child))
        return child;
#endif

    return {};
}
