#include "app/registryValue.h"
#include <juce_data_structures/juce_data_structures.h>

#if JUCE_WINDOWS

juce::String getRegistryValue (const juce::String& valuePath)
{
    return juce::WindowsRegistry::getValue (valuePath);
}

#else

/** The user's folder for settings, as desktop programs agree to find it (XDG base directories): a variable
    that is unset or not an absolute path stands for ~/.config. */
static juce::File settingsFolder()
{
    const auto configured = juce::SystemStats::getEnvironmentVariable ("XDG_CONFIG_HOME", {});

    if (juce::File::isAbsolutePath (configured))
        return configured;

    return juce::File::getSpecialLocation (juce::File::userHomeDirectory).getChildFile (".config");
}

static constexpr juce::int64 maximumSize = 1 << 20; // of the settings, bytes

juce::String getRegistryValue (const juce::String& valuePath)
{
    const auto file = settingsFolder().getChildFile ("Dorvik Electronics").getChildFile ("registry.settings");

    if (file.getSize() > maximumSize)
        return {};

    juce::PropertiesFile::Options options;
    options.storageFormat = juce::PropertiesFile::storeAsXML;
    options.millisecondsBeforeSaving = -1; // only read here, never saved

    return juce::PropertiesFile (file, options).getValue (valuePath);
}

#endif
