#include "app/installationPaths.h"
#include "app/productName.h"
#include "tests/support/alertRobot.h"
#include "tests/support/temporaryInstallation.h"
#include "tests/support/waiting.h"
#include <catch2/catch.hpp>

static const auto valuePath =
    juce::String ("HKEY_LOCAL_MACHINE\\SOFTWARE\\Dorvik Electronics\\Klangora 4\\InstallationDir");

/** Puts the installation folder where the program looks for it. */
static void setRegistryValue (const juce::String& value)
{
#if JUCE_WINDOWS
    REQUIRE (juce::WindowsRegistry::setValue (valuePath, value));
#else
    juce::PropertiesFile::Options options;
    options.storageFormat = juce::PropertiesFile::storeAsXML;
    const juce::File config (juce::SystemStats::getEnvironmentVariable ("XDG_CONFIG_HOME", {}));
    juce::PropertiesFile settings (config.getChildFile ("Dorvik Electronics/registry.settings"), options);
    settings.setValue (valuePath, value);
    REQUIRE (settings.save());
#endif
}

TEST_CASE ("a missing or wrong installation folder is reported and searched again")
{
    alertRobot robot;
    setRegistryValue ({});
    findInstallationPaths();
    findInstallationPaths();
    const juce::String missing ("Installation path missing in registry. Please reinstall!");
    CHECK (robot.texts() == juce::StringArray{ missing, missing });
    CHECK (robot.seen()[0].title == "Klangora 4");
    CHECK (robot.seen()[0].buttons == juce::StringArray{ "Ok" });
    CHECK (installationFolder.isEmpty());
    CHECK (registryKeyPath == "HKEY_LOCAL_MACHINE\\SOFTWARE\\Dorvik Electronics\\Klangora 4");
}
