#include "app/installationPaths.h"
#include "app/registryValue.h"
#include "sandbox/archiveWriter.h"
#include "tests/support/alertRobot.h"
#include "tests/support/freshFramework.h"
#include "tests/support/temporaryInstallation.h"
#include <catch2/catch.hpp>

#if ! JUCE_WINDOWS
    #include <sys/stat.h>
#endif

static const auto valuePath =
    juce::String ("HKEY_LOCAL_MACHINE\\SOFTWARE\\Dorvik Electronics\\Klangora 4\\InstallationDir");

static void setRegistryValue (const juce::String& value)
{
#if JUCE_WINDOWS
    REQUIRE (juce::WindowsRegistry::setValue (valuePath, value));
#else
    const juce::File config (juce::SystemStats::getEnvironmentVariable ("XDG_CONFIG_HOME", {}));
    const auto file = config.getChildFile ("Dorvik Electronics/registry.settings");
    juce::XmlElement root ("PROPERTIES");
    root.createNewChildElement ("VALUE")->setAttribute ("name", valuePath);
    root.getFirstChildElement()->setAttribute ("val", value);
    REQUIRE ((file.getParentDirectory().createDirectory().wasOk() && file.deleteFile()));
    REQUIRE (mkfifo (file.getFullPathName().toRawUTF8(), 0600) == 0);
    CHECK (getRegistryValue (valuePath).isEmpty()); // a pipe is not waited for
    REQUIRE ((file.deleteFile() && file.create().wasOk() && file.replaceWithText ("damaged")));
    CHECK (getRegistryValue (valuePath).isEmpty());
    REQUIRE (root.writeTo (file));
#endif
}

/** The boxes that a start shows when the registry holds `folder`. */
static juce::StringArray boxesAtStart (const juce::String& folder)
{
    forgetInstallation();
    setRegistryValue (folder);
    alertRobot robot;
    findInstallationPaths();

    CHECK (registryKeyPath == "HKEY_LOCAL_MACHINE\\SOFTWARE\\Dorvik Electronics\\Klangora 4");
    return robot.texts();
}

static const juce::String dataMissing ("GUI data could not be found. Please reinstall!");

TEST_CASE ("an empty registry value is reported, and searched again by the next call")
{
    CHECK (boxesAtStart ({})
           == juce::StringArray{ "Installation path missing in registry. Please reinstall!" });
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
               == juce::StringArray{ "The Klangora 4 installation folder can't be found, and that's not a "
                                     "good thing. Please reinstall.\nCould not find: "
                                     + wrong });
        CHECK ((installationFolder == wrong && guiDataSource == nullptr));
    }
}

TEST_CASE ("interface data comes from the folder, else from the archive, else its absence is reported")
{
    const temporaryInstallation installation;
    const juce::String name (juce::CharPointer_UTF8 ("Käfer & Söhne 音/"));
    const auto root = installation.folder.getFullPathName() + "/" + name; // ends with a slash
    const auto archive = name + "gui/klangora 4.sa", folder = name + "gui/klangora 4";
    const auto start = [&] { return boxesAtStart (root).joinIntoString ("|"); };
    const auto skin = [] {
        return guiDataSource->createInputStreamFor ("skin.png")->readEntireStreamAsString();
    };

    // A file in the folder's place and a folder in the archive's are nothing.
    installation.write (folder, "");
    installation.write (archive + "/skin.png", "");
    CHECK (start() == dataMissing);
    CHECK (guiDataSource == nullptr);
    REQUIRE (installation.folder.getChildFile (archive).deleteRecursively());

    installation.write (archive, archiveWriter{ 4, { { "skin.png", "picture", true } } }.write());
    CHECK (start() == "");
    CHECK (skin() == "picture");

    // An archive that fails stays the source.
    installation.write (archive, archiveWriter{ 5 }.write());
    CHECK (start().endsWith ("klangora 4.sa can't be opened because it's a old version.|" + dataMissing));
    CHECK (guiDataSource == &guiArchiveSource);

    // That archive would be reported, were it opened.
    REQUIRE (installation.folder.getChildFile (folder).deleteFile());
    installation.write (folder + "/skin.png", "loose picture");
    CHECK (start() == "");
    CHECK (skin() == "loose picture");
}
