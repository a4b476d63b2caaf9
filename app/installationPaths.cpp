#include "app/installationPaths.h"
#include "app/productName.h"
#include "app/registryValue.h"
#include "base/ordinaryFile.h"
#include "store/showAttention.h"

juce::String installationFolder;
juce::String registryKeyPath;
jSimpleArchiveDirectory guiFolderSource;
jSimpleArchive guiArchiveSource;
jSimpleArchive* guiDataSource = nullptr;

/** Points guiDataSource at the interface pictures below the installation folder, if there are any: a folder
    wins over a packed archive. */
static void findGuiData()
{
    const auto guiPath = installationFolder + "/gui/" + juce::String (productName).toLowerCase();
    const auto archivePath = guiPath + ".sa";

    if (juce::File (guiPath).isDirectory())
    {
        guiFolderSource.open (guiPath);
        guiDataSource = &guiFolderSource;
    }
    else if (isOrdinaryFile (archivePath))
    {
        guiArchiveSource.open (juce::File::createLegalPathName (archivePath));
        guiDataSource = &guiArchiveSource;
    }
}

void findInstallationPaths()
{
    if (installationFolder.isNotEmpty())
        return;

    registryKeyPath = juce::String ("HKEY_LOCAL_MACHINE\\SOFTWARE\\Dorvik Electronics\\") + productName;
    installationFolder = getRegistryValue (registryKeyPath + "\\InstallationDir");

    if (installationFolder.isEmpty())
    {
        showAttention ("Installation path missing in registry. Please reinstall!");
        return;
    }

    if (! juce::File::isAbsolutePath (installationFolder) || ! juce::File (installationFolder).isDirectory())
    {
        showAttention (
            juce::String ("The ") + productName
            + " installation folder can't be found, and that's not a good thing. Please reinstall.\n"
            + "Could not find: " + installationFolder);
        return;
    }

    findGuiData();

    if (guiDataSource == nullptr || ! guiDataSource->isValid())
        showAttention ("GUI data could not be found. Please reinstall!");
}
