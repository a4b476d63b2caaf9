#include "app/installationPaths.h"
#include "app/registryValue.h"
#include "tests/support/alertRobot.h"
#include "tests/support/archiveWriter.h"
#include "tests/support/freshFramework.h"
#include "tests/support/temporaryInstallation.h"
#include <catch2/catch.hpp>

static const auto valuePath =
    juce::String ("HKEY_LOCAL_MACHINE\\SOFTWARE\\Dorvik Electronics\\Klangora 4\\InstallationDir");

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
    juce::PropertiesFile::Options options;
    options.storageFormat = juce::PropertiesFile::storeAsXML;
    juce::PropertiesFile settings (settingsFile(), options);
    settings.setValue (valuePath, value);
    REQUIRE (settings.save());
}

#endif

/** The boxes that a start shows when the registry holds `folder`. */
static juce::StringArray boxesAtStart (const juce::String& folder)
{
    forgetInstallation();
    setRegistryValue (folder);
    alertRobot robot;
    findInstallationPaths();

    for (auto& box : robot.seen())
    {
        CHECK (box.title == "Klangora 4");
        CHECK (box.buttons == juce::StringArray{ "Ok" });
    }

    CHECK (registryKeyPath == "HKEY_LOCAL_MACHINE\\SOFTWARE\\Dorvik Electronics\\Klangora 4");
    return robot.texts();
}

static const juce::String pathMissing ("Installation path missing in registry. Please reinstall!");
static const juce::String dataMissing ("GUI data could not be found. Please reinstall!");

TEST_CASE ("an empty registry value is reported, and searched again by the next call")
{
    CHECK (boxesAtStart ({}) == juce::StringArray{ pathMissing });
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

    for (auto& wrong :
         { file, file + "/below", installation.folder.getFullPathName() + "/missing", juce::String ("."),
           juce::String ("relative"), juce::String ("no path at all: \n?") })
    {
        CHECK (boxesAtStart (wrong)
               == juce::StringArray{ "The Klangora 4 installation folder can't be found, and that's not a "
                                     "good thing. Please reinstall.\nCould not find: "
                                     + wrong });
        CHECK (installationFolder == wrong);
        CHECK (guiDataSource == nullptr);
    }
}

TEST_CASE ("interface data comes from the folder, else from the archive, else its absence is reported")
{
    const temporaryInstallation installation;
    const auto root = installation.folder.getFullPathName();
    const auto archivePath = root + "/gui/klangora 4.sa";
    const auto start = [&] { return boxesAtStart (root).joinIntoString ("|"); };
    CHECK (start() == dataMissing);
    CHECK (guiDataSource == nullptr);

    // A file in the folder's place and a folder in the archive's are nothing.
    installation.write ("gui/klangora 4", "");
    installation.write ("gui/klangora 4.sa/skin.png", "");
    CHECK (start() == dataMissing);
    CHECK (guiDataSource == nullptr);
    REQUIRE (juce::File (archivePath).deleteRecursively());

    installation.write ("gui/klangora 4.sa", archiveWriter{ 4, { { "skin.png", "picture", true } } }.write());
    CHECK (start() == "");
    REQUIRE (guiDataSource == &guiArchiveSource);
    CHECK (guiDataSource->createInputStreamFor ("skin.png")->readEntireStreamAsString() == "picture");

    // An archive that fails stays the source.
    installation.write ("gui/klangora 4.sa", archiveWriter{}.write());
    CHECK (start() == dataMissing);
    CHECK (guiDataSource == &guiArchiveSource);
    installation.write ("gui/klangora 4.sa", archiveWriter{ 5 }.write());
    CHECK (start()
           == "The packed archive " + archivePath + " can't be opened because it's a old version.|"
                  + dataMissing);
    CHECK (guiDataSource == &guiArchiveSource);

    // That archive would be reported, were it opened.
    REQUIRE (installation.folder.getChildFile ("gui/klangora 4").deleteFile());
    installation.write ("gui/klangora 4/skin.png", "loose picture");
    CHECK (start() == "");
    REQUIRE (guiDataSource == &guiFolderSource);
    CHECK (guiDataSource->createInputStreamFor ("skin.png")->readEntireStreamAsString() == "loose picture");
}

TEST_CASE ("an installation folder may have accents, blanks and a slash at its end")
{
    const temporaryInstallation installation;
    const juce::String name (juce::CharPointer_UTF8 ("Käfer & Söhne 音/"));
    installation.write (name + "gui/klangora 4/skin.png", "");
    CHECK (boxesAtStart (installation.folder.getFullPathName() + "/" + name).isEmpty());
    CHECK (guiDataSource->contains ("skin.png"));

    installation.folder.getChildFile (name + "gui/klangora 4").deleteRecursively();
    installation.write (name + "gui/klangora 4.sa", archiveWriter{ 1, { { "skin.png", "" } } }.write());
    CHECK (boxesAtStart (installation.folder.getFullPathName() + "/" + name).isEmpty());
    CHECK (guiDataSource->contains ("skin.png"));
}

#if ! JUCE_WINDOWS

TEST_CASE ("a damaged settings file holds no values")
{
    setRegistryValue ("/tmp");
    const auto file = settingsFile();
    const auto good = file.loadFileAsString();

    for (auto& text : { juce::String(), good.dropLastCharacters (30), good.replace ("<VALUE", "<OTHER"),
                        juce::String ("PROP\x7f\x7f\x7f\x7f"), juce::String ("CPROP") })
    {
        REQUIRE (file.replaceWithText (text));
        CHECK (getRegistryValue (valuePath).isEmpty());
    }

    file.deleteFile();
    CHECK (getRegistryValue (valuePath).isEmpty());
    file.createDirectory();
    CHECK (getRegistryValue (valuePath).isEmpty());
}

#endif
