#include "base/validText.h"
#include <algorithm>
#include <cstring>

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

static void append (std::string& text, juce::juce_wchar character)
{
    char encoded[4];
    juce::CharPointer_UTF8 end (encoded);
    end.write (character);
    text.append (encoded, end.getAddress());
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
            append (result, juce::CharacterFunctions::getUnicodeCharFromWindows1252Codepage (*bytes));

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

/** UTF-16 after its byte-order mark. Half a surrogate pair becomes U+FFFD, half a unit at the end is left out. */
static std::string fromUtf16 (const juce::uint8* units, size_t size, bool isBigEndian)
{
    const auto unitAt = [=] (size_t i) {
        return (juce::uint32) (units[isBigEndian ? i : i + 1] << 8 | units[isBigEndian ? i + 1 : i]);
    };
    std::string result;
    result.reserve (size);

    for (size_t i = 0; i + 2 <= size; i += 2)
    {
        const auto unit = unitAt (i), next = i + 4 <= size ? unitAt (i + 2) : 0;
        const auto isHalf = (unit & 0xf800) == 0xd800;

        if (isHalf && unit < 0xdc00 && (next & 0xfc00) == 0xdc00)
        {
            // Four bytes each, which a wide character of Windows could not hold.
            const auto character = 0x10000 + ((unit & 0x3ff) << 10) + (next & 0x3ff);
            result += { (char) (0xf0 | character >> 18), (char) (0x80 | (character >> 12 & 0x3f)),
                        (char) (0x80 | (character >> 6 & 0x3f)), (char) (0x80 | (character & 0x3f)) };
            i += 2;
        }
        else
        {
            append (result, (juce::juce_wchar) (isHalf ? 0xfffd : unit));
        }
    }

    return result;
}

std::string decodedText (const void* bytes, size_t size)
{
    const auto* text = static_cast<const char*> (bytes);

    if (size >= 2)
        for (const auto isBigEndian : { false, true })
            if (std::memcmp (text, isBigEndian ? "\xfe\xff" : "\xff\xfe", 2) == 0)
                return fromUtf16 (static_cast<const juce::uint8*> (bytes) + 2, size - 2, isBigEndian);

    const size_t mark = size >= 3 && std::memcmp (text, "\xef\xbb\xbf", 3) == 0 ? 3 : 0;

    if (isValidText (text + mark, size - mark))
        return { text + mark, size - mark };

    return repaired (text + mark, size - mark);
}
