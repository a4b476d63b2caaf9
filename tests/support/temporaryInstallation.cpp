#include "tests/support/temporaryInstallation.h"
#include "app/installationPaths.h"
#include "base/temporaryFile.h"
#include <catch2/catch.hpp>
#include <new>

void forgetInstallation()
{
    installationFolder.clear();
    registryKeyPath.clear();
    guiDataSource = nullptr;

    // A reader is opened once in its life, and these live as long as the process.
    std::destroy_at (&guiFolderSource);
    std::destroy_at (&guiArchiveSource);
    new (&guiFolderSource) jSimpleArchiveDirectory();
    new (&guiArchiveSource) jSimpleArchive();
}

juce::String abandonedName (const juce::File& folder)
{
    const temporaryFile writing (folder, temporaryFile::readers::everybody);
    REQUIRE (writing.isOpen());
    auto files = folder.findChildFiles (juce::File::findFiles, false);
    files.removeIf ([] (auto& file) { return ! temporaryFile::isTemporaryName (file.getFileName()); });
    return files.getFirst().getFileName();
}

temporaryInstallation::temporaryInstallation()
{
    REQUIRE (folder.createDirectory().wasOk());
    installationFolder = path;
}

temporaryInstallation::~temporaryInstallation()
{
    installationFolder.clear();
    folder.deleteRecursively();
}

juce::File temporaryInstallation::write (const juce::String& name, const juce::MemoryBlock& bytes) const
{
    auto file = folder.getChildFile (name);
    file.deleteFile();
    REQUIRE (file.create().wasOk());
    REQUIRE (file.appendData (bytes.getData(), bytes.getSize()));
    return file;
}

juce::StringArray temporaryInstallation::files() const
{
    juce::StringArray found;

    for (auto& file : folder.findChildFiles (juce::File::findFiles, true))
        found.add (file.getRelativePathFrom (folder).replaceCharacter ('\\', '/'));

    found.sort (false);
    return found;
}
