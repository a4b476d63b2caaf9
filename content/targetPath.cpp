#include "content/targetPath.h"
#include "base/temporaryFile.h"

bool isDeviceName (const juce::String& part)
{
    const auto stem = part.upToFirstOccurrenceOf (".", false, false).trimEnd().toUpperCase();

    if (stem.length() == 4 && (stem.startsWith ("COM") || stem.startsWith ("LPT")))
        return juce::String::fromUTF8 ("0123456789\u00b9\u00b2\u00b3").containsChar (stem[3]);

    return stem == "CON" || stem == "PRN" || stem == "AUX" || stem == "NUL" || stem == "CONIN$"
           || stem == "CONOUT$";
}

static bool isAllowedPart (const juce::String& part)
{
    if (part.isEmpty() || part.endsWithChar ('.') || part.endsWithChar (' ')
        || temporaryFile::isTemporaryName (part))
        return false;

#if JUCE_WINDOWS
    if (isDeviceName (part))
        return false;
#endif

    for (auto character : part)
        if (character < 0x20 || character == 0x7f || character == ':')
            return false;

    return true;
}

std::optional<juce::String> targetPath (const juce::String& target, const juce::String& installationFolder)
{
    const auto root = installationFolder + "/";

    if (! juce::File::isAbsolutePath (installationFolder) || ! target.startsWith (root))
        return {};

    juce::StringArray parts;
    parts.addTokens (target.substring (root.length()), "/\\", {});

    if (parts.isEmpty() || ! std::all_of (parts.begin(), parts.end(), isAllowedPart))
        return {};

    return root + parts.joinIntoString ("/");
}
