#include "base/validText.h"
#include <algorithm>
#include <string>

/** Length of the well-formed UTF-8 sequence that `bytes` start with, 0 when there is none. The framework's own
    test also passes overlong forms, surrogates and code points above U+10FFFF. */
static size_t sequenceLength (const juce::uint8* bytes, size_t available)
{
    const auto lead = bytes[0];

    if (lead < 0x80)
        return 1;

    const size_t length = lead >= 0xf0 ? 4 : lead >= 0xe0 ? 3 : 2;

    if (lead < 0xc2 || lead > 0xf4 || available < length)
        return 0;

    const auto lowest = lead == 0xe0 ? 0xa0 : lead == 0xf0 ? 0x90 : 0x80;
    const auto highest = lead == 0xed ? 0x9f : lead == 0xf4 ? 0x8f : 0xbf;

    if (bytes[1] < lowest || bytes[1] > highest)
        return 0;

    for (size_t i = 2; i < length; ++i)
        if ((bytes[i] & 0xc0) != 0x80)
            return 0;

    return length;
}

bool isValidText (const void* bytes, size_t size)
{
    const auto* text = static_cast<const juce::uint8*> (bytes);
    size_t position = 0;

    while (position < size)
    {
        const auto length = sequenceLength (text + position, size - position);

        if (length == 0)
            return false;

        position += length;
    }

    return true;
}

static std::string repaired (const char* text, size_t size)
{
    std::string result;
    result.reserve (size);

    for (size_t i = 0; i < size;)
    {
        const auto* bytes = reinterpret_cast<const juce::uint8*> (text) + i;
        const auto length = sequenceLength (bytes, size - i);

        if (length > 0)
            result.append (text + i, length);
        else
            result += juce::String::charToString (
                          juce::CharacterFunctions::getUnicodeCharFromWindows1252Codepage (*bytes))
                          .toStdString();

        i += juce::jmax ((size_t) 1, length);
    }

    return result;
}

juce::String validText (const void* bytes, size_t size)
{
    const auto* text = static_cast<const char*> (bytes);
    const auto* end = std::find (text, text + size, '\0');
    const auto length = (size_t) (end - text);

    if (isValidText (text, length))
        return { juce::CharPointer_UTF8 (text), juce::CharPointer_UTF8 (end) };

    return repaired (text, length);
}
