#include "net/escapeText.h"
#include <cstring>
#include <string>

static juce::String escapeUnless (bool (*stays) (juce::uint8), const juce::String& text)
{
    static constexpr const char* digits = "0123456789ABCDEF";
    std::string escaped;

    for (const auto* byte = text.toRawUTF8(); *byte != 0; ++byte)
    {
        const auto value = (juce::uint8) *byte;

        if (stays (value))
            escaped += *byte;
        else
            escaped += { '%', digits[value >> 4], digits[value & 15] };
    }

    return escaped;
}

juce::String escapeFormText (const juce::String& text)
{
    return escapeUnless (
        [] (juce::uint8 byte) {
            return (byte >= '0' && byte <= '9') || (byte >= 'A' && byte <= 'Z')
                   || (byte >= 'a' && byte <= 'z') || std::strchr ("_-.*!'()", byte) != nullptr;
        },
        text);
}

juce::String escapeAddressText (const juce::String& text)
{
    return escapeUnless ([] (juce::uint8 byte) { return byte > 0x20 && byte < 0x7f; }, text);
}
