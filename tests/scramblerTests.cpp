#include "base/validText.h"
#include "net/dataScrambler.h"
#include <catch2/catch.hpp>

TEST_CASE ("bytes from outside become valid text up to their first zero byte")
{
    const std::pair<std::string, std::string> cases[] = {
        { "\xef\xbb\xbf Größe € 🎸 \xf4\x8f\xbf\xbf", "\xef\xbb\xbf Größe € 🎸 \xf4\x8f\xbf\xbf" },
        { std::string ("before\0after", 12), "before" },
        { "f\xfcr 5\x80", "für 5€" },                   // Windows-1252
        { "a\xc0\xaf\xe0\x80\xaf", "aÀ¯à€¯" },          // overlong
        { "\xed\xa0\x80", "í\xc2\xa0€" },               // a surrogate
        { "cut \xf0\x9f\x8e", "cut ðŸŽ" },              // at the end of the bytes
        { std::string ("cut \xe2\0\x82", 7), "cut â" }, // at the zero byte
    };

    for (auto& [bytes, valid] : cases)
    {
        const auto text = validText (bytes.data(), bytes.size());
        CHECK (text.toStdString() == valid);
    }
}

// The expected bytes are those of OpenSSL's Blowfish under the same key, not this program's own: for each block,
// BF_encrypt of the counter pair, both halves then written in little-endian order. The printable texts were
// made of them with the framework's alphabet by a script of a few lines.

TEST_CASE ("the keystream is Blowfish's, block by block, in little-endian order")
{
    const std::tuple<juce::uint32, juce::uint32, const char*> cases[] = {
        { 5172093, 41927506, "fb558cac81c068e679e0764eac22198e8c5a9dfda0d4b983" },
        { 0xfffffffe, 0xffffffff, "aea934722806e77498e6dfa90c556d605be07dc41028bfd0" },
    };

    for (auto& [firstLeft, firstRight, keystream] : cases)
        for (const int length : { 24, 16, 13, 7, 0, -1 }) // what follows the length stays as it was
        {
            const auto size = (size_t) juce::jmax (0, length);
            juce::MemoryBlock expected, data (24, true);
            expected.loadFromHexString (keystream);
            auto left = firstLeft, right = firstRight;
            applyKeystream (data.getData(), length, left, right);
            CHECK (std::memcmp (data.getData(), expected.getData(), size) == 0);
            CHECK (std::count (data.begin() + size, data.end(), 0) == (int) (24 - size));
            CHECK (left == firstLeft + (juce::uint32) size / 8 + 1);
            CHECK (right == firstRight + (juce::uint32) size / 8 + 1);
        }
}

TEST_CASE ("texts have fixed printable forms, and what cannot be one gives no text")
{
    const std::pair<const char*, const char*> cases[] = {
        { "7 bytes", "8.LWm6UWeoaXN" },
        { "8 bytes!", "16.CWm6UWeoabbdfamSrJRFNB" },
        { "pä$$wörd € 🎸", "24.KZIJHV5sqB0BDZEqt3XN9MA0kzOnTm6f" },
    };

    for (auto& [text, printable] : cases)
    {
        CHECK (scrambleText (juce::CharPointer_UTF8 (text), 5172093, 41927506) == printable);
        CHECK (unscrambleText (printable, 5172093, 41927506) == juce::CharPointer_UTF8 (text));
    }

    // The size is read as the framework reads numbers.
    for (auto* odd :
         { " \t8.LWm6UWeoaXN", "008x.LWm6UWeoaXN", "8 8.LWm6UWeoaXN zz", "4294967304.LWm6UWeoaXN" })
        CHECK (unscrambleText (odd, 5172093, 41927506) == "7 bytes");

    for (auto* impossible :
         { "", ".", "LWm6UWeoaXN", "-8.LWm6UWeoaXN", "8.LWm6UWeoaX", "9.LWm6UWeoaXN", "2147483647.A",
           "4294967305.LWm6UWeoaXN", "0x8.LWm6UWeoaXN", "-2147483648.A", "é.LWm6UWeoaXN" })
        CHECK (unscrambleText (juce::CharPointer_UTF8 (impossible), 5172093, 41927506).isEmpty());
}
