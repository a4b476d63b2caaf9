#include "app/installationPaths.h"
#include "tests/support/pictures.h"
#include "tests/support/script.h"
#include "ui/lookAndFeelKlangora.h"
#include <catch2/catch.hpp>

static const juce::String
    valuePath ("HKEY_LOCAL_MACHINE\\SOFTWARE\\Dorvik Electronics\\Klangora 4\\InstallationDir");

#if JUCE_WINDOWS
static void setRegistryValue (const juce::String& value)
{
    REQUIRE (juce::WindowsRegistry::setValue (valuePath, value));
}
#else
static juce::File settingsFile()
{
    const juce::File config (juce::SystemStats::getEnvironmentVariable ("XDG_CONFIG_HOME", {}));
    auto file = config.getChildFile ("Dorvik Electronics/registry.settings");
    REQUIRE (file.create().wasOk());
    return file;
}

static void setRegistryValue (const juce::String& value)
{
    juce::PropertiesFile settings (settingsFile(), juce::PropertiesFile::Options());
    settings.setValue (valuePath, value);
}
#endif

namespace
{
/** The start of the program, with the pictures of its interface. */
struct start : scene
{
    lookAndFeelKlangora skin;

    start()
    {
        forgetInstallation();
        acts["the registry says"] = [this] (auto& a) {
            setRegistryValue (a[0].replace ("FOLDER", installation.path).replace ("\\n", "\n"));
        };
#if ! JUCE_WINDOWS
        acts["the settings are damaged"] = [] (auto&) {
            REQUIRE (settingsFile().replaceWithText ("no XML"));
        };
#endif
        acts["start"] = [] (auto&) { findInstallationPaths(); };
        acts["picture of width"] = [this] (auto& a) { writePicture (a[1], a[0].getIntValue(), 1); };
        acts["half a picture"] = [this] (auto& a) { writePicture (a[0], 100, 2); };
        acts["load"] = [this] (auto& a) {
            const auto picture = lookAndFeelKlangora::loadPicture (*guiDataSource, a[0]);
            events.add (picture.getBounds().toString());
        };
        acts["the skin is reloaded always"] = [this] (auto&) { skin.reloadSkinBackground = true; };
        acts["the source goes"] = [] (auto&) { guiDataSource = nullptr; };
    }

    /** A part of a picture's file, in the folder that the interface's pictures come from. */
    void writePicture (const juce::String& name, int width, size_t divisor) const
    {
        const auto file = encoded ({ juce::Image::RGB, width, 2, true });
        installation.write ("gui/klangora 4/" + name, { file.getData(), file.getSize() / divisor });
    }

    juce::StringArray look() override
    {
        auto lines = scene::look();

        if (registryKeyPath.isEmpty()) // before the start
            return lines;

        juce::Image shown;
        skin.renderDialogBackground (shown, juce::Component(), 30, 20, false);
        const auto picture = skin.getSkinBackground();
        lines.add ("the background is "
                   + (picture.isNull() ? shown.getPixelAt (7, 7).toDisplayString (true)
                                       : picture.getBounds().toString()));
        const auto note =
            guiDataSource != nullptr ? guiDataSource->createInputStreamFor ("note.txt") : nullptr;
        lines.add ("the note is " + (note != nullptr ? note->readEntireStreamAsString() : "not there"));
        lines.add ("the registry key is " + registryKeyPath);
        lines.add ("the installation folder is " + installationFolder);
        return lines;
    }
};
}

TEST_CASE ("the installation and its pictures are found as the script says")
{
    playScript ("start-up-script", [] { return std::make_unique<start>(); });
}
