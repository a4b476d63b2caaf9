#include "content/targetPath.h"

/** Names that Windows opens as a device wherever they stand, whatever extension follows. */
static bool isDeviceName (const juce::String& part)
{
    const auto stem = part.upToFirstOccurrenceOf (".", false, false).trimEnd().toUpperCase();

    if (stem.length() == 4 && (stem.startsWith ("COM") || stem.startsWith ("LPT")))
        return juce::String::fromUTF8 ("0123456789\u00b9\u00b2\u00b3").containsChar (stem[3]);

    return stem == "CON" || stem == "PRN" || stem == "AUX" || stem == "NUL" || stem == "CONIN$"
           || stem == "CONOUT$";
}

static bool isAllowedPart (const juce::String& part)
{
    if (part.isEmpty() || part.endsWithChar ('.') || part.endsWithChar (' ') || isDeviceName (part))
        return false;

    for (auto character : part)
        if (character < 0x20 || character == 0x7f || character == ':')
            return false;

    return true;
}

bool isAllowedTarget (const juce::String& relativePath)
{
    juce::StringArray parts;
    parts.addTokens (relativePath.replaceCharacter ('\\', '/'), "/", {});

    return ! parts.isEmpty() && std::all_of (parts.begin(), parts.end(), isAllowedPart);
}
