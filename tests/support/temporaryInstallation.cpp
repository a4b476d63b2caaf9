#include "tests/support/temporaryInstallation.h"
#include "app/installationPaths.h"
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

temporaryInstallation::temporaryInstallation()
    : folder (juce::File::createTempFile ("rigmart-install"))
{
    REQUIRE (folder.createDirectory().wasOk());
    installationFolder = folder.getFullPathName();
}

temporaryInstallation::~temporaryInstallation()
{
    installationFolder.clear();
    folder.deleteRecursively();
}

juce::File temporaryInstallation::write (const juce::String& path, const juce::MemoryBlock& bytes) const
{
    auto file = folder.getChildFile (path);
    REQUIRE (
        (file.deleteFile() && file.create().wasOk() && file.appendData (bytes.getData(), bytes.getSize())));
    return file;
}

juce::StringArray temporaryInstallation::files() const
{
    juce::StringArray result;

    for (auto& entry : juce::RangedDirectoryIterator (folder, true, "*", juce::File::findFiles))
        result.add (entry.getFile().getRelativePathFrom (folder).replaceCharacter ('\\', '/'));

    result.sort (false);
    return result;
}
