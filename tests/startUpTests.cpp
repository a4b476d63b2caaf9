#include "app/installationPaths.h"
#include "app/registryValue.h"
#include "sandbox/archiveWriter.h"
#include "tests/support/alertRobot.h"
#include "tests/support/dataTable.h"
#include "tests/support/temporaryInstallation.h"
#include <catch2/catch.hpp>

static const juce::String
    valuePath ("HKEY_LOCAL_MACHINE\\SOFTWARE\\Dorvik Electronics\\Klangora 4\\InstallationDir");
static const juce::String dataMissing ("GUI data could not be found. Please reinstall!");

#if JUCE_WINDOWS
static void setRegistryValue (const juce::String& value)
{
    REQUIRE (juce::WindowsRegistry::setValue (valuePath, value));
}
#else
static juce::File settingsFile()
{
    const juce::File config (juce::SystemStats::getEnvironmentVariable ("XDG_CONFIG_HOME", {}));
    return config.getChildFile ("Dorvik Electronics/registry.settings");
}

static void setRegistryValue (const juce::String& value)
{
    juce::XmlElement root ("PROPERTIES");
    auto* entry = root.createNewChildElement ("VALUE");
    entry->setAttribute ("name", valuePath);
    entry->setAttribute ("val", value);
    REQUIRE (settingsFile().create().wasOk());
    REQUIRE (root.writeTo (settingsFile()));
}

TEST_CASE ("damaged settings hold no values")
{
    REQUIRE (settingsFile().create().wasOk());
    REQUIRE (settingsFile().replaceWithText ("damaged"));
    CHECK (getRegistryValue (valuePath).isEmpty());
}
#endif

/** The boxes that a start shows when the registry holds `folder`. */
static juce::String boxesAtStart (const juce::String& folder)
{
    forgetInstallation();
    setRegistryValue (folder);
    alertRobot robot;
    findInstallationPaths();
    CHECK (registryKeyPath == valuePath.upToLastOccurrenceOf ("\\", false, false));
    return robot.texts().joinIntoString ("; ");
}

TEST_CASE ("an empty registry value is reported, and searched again by the next call")
{
    CHECK (boxesAtStart ({}) == "Installation path missing in registry. Please reinstall!");
    CHECK (installationFolder.isEmpty());

    const temporaryInstallation installation;
    setRegistryValue (installationFolder);
    installationFolder.clear();
    alertRobot robot;
    findInstallationPaths();
    findInstallationPaths();
    CHECK (installationFolder == installation.folder.getFullPathName());
    CHECK (robot.texts() == juce::StringArray{ dataMissing });
}

TEST_CASE ("an installation folder that is none is reported with its text, which is kept")
{
    const temporaryInstallation installation;
    const auto file = installation.write ("a file", "").getFullPathName();

    for (auto& wrong : { file, file + "/below", juce::String ("relative"), juce::String ("no path: \n?") })
    {
        CHECK (boxesAtStart (wrong)
               == "The Klangora 4 installation folder can't be found, and that's not a good thing. Please "
                  "reinstall.\nCould not find: "
                      + wrong);
        CHECK (installationFolder == wrong);
        CHECK (guiDataSource == nullptr);
    }
}

/** Puts interface data at a path: a folder, an archive of a version, or an empty file. */
static void putData (const temporaryInstallation& installation, const juce::String& path,
                     const juce::String& data)
{
    if (data == "folder")
        installation.write (path + "/skin.png", "loose");
    else if (data.startsWith ("version "))
        installation.write (
            path,
            archiveWriter{ (juce::uint32) data.getTrailingIntValue(), { { "skin.png", "packed" } } }.write());
    else if (data == "file")
        installation.write (path, "");
}

TEST_CASE ("interface data comes from the folder, else from the archive, else its absence is reported")
{
    checkTable ("interfaceData", [] (auto& columns) {
        const temporaryInstallation installation;
        const juce::String name (juce::CharPointer_UTF8 ("Käfer & Söhne 音/")); // ends with a slash
        putData (installation, name + "gui/klangora 4", columns[0]);
        putData (installation, name + "gui/klangora 4.sa", columns[1]);

        const auto root = installation.folder.getFullPathName() + "/" + name;
        const auto boxes = boxesAtStart (root).replaceCharacter ('\\', '/').replace (
            root.replaceCharacter ('\\', '/'), "ROOT");
        const auto skin =
            guiDataSource != nullptr ? guiDataSource->createInputStreamFor ("skin.png") : nullptr;
        return (skin != nullptr ? skin->readEntireStreamAsString() : boxes).toStdString();
    });
}
