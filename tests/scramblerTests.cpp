#include "net/dataScrambler.h"
#include "net/validText.h"
#include <catch2/catch.hpp>

TEST_CASE ("bytes from outside become valid text up to their first zero byte")
{
    const struct
    {
        std::string bytes, text;
    } cases[] = {
        { "", "" },
        { "plain\nlines", "plain\nlines" },
        { "\xef\xbb\xbf Größe € 🎸 \xf4\x8f\xbf\xbf", "\xef\xbb\xbf Größe € 🎸 \xf4\x8f\xbf\xbf" },
        { std::string ("before\0after", 12), "before" },
        { "f\xfcr 5\x80", "für 5€" },                              // Windows-1252
        { "\xc3\xa9 and \xe9", "é and é" },                        // a stray byte spoils only itself
        { "a\xc0\xaf\xe0\x80\xaf", "aÀ¯à€¯" },                     // overlong
        { "\xed\xa0\x80", "í\xc2\xa0€" },                          // a surrogate
        { "\xf4\x90\xa0\xa1 \xf5\xbf\xff", "ô\x07\xc2\xa0¡ õ¿ÿ" }, // above U+10FFFF
        { "cut \xf0\x9f\x8e", "cut ðŸŽ" },                         // at the end of the bytes
        { std::string ("cut \xe2\0\x82", 7), "cut â" },            // at the zero byte
    };

    for (auto& c : cases)
    {
        const auto text = validText (c.bytes.data(), c.bytes.size());
        CHECK (text.toStdString() == c.text);
        CHECK (juce::CharPointer_UTF8::isValidString (text.toRawUTF8(), (int) text.getNumBytesAsUTF8()));
    }

    CHECK (validText (nullptr, 0).isEmpty());
}

// The expected bytes are those of OpenSSL's Blowfish under the same key, not this program's own: for each block,
// BF_encrypt of the counter pair, both halves then written in little-endian order. The printable texts were
// made of them with the framework's alphabet by a script of a few lines.

TEST_CASE ("the keystream is Blowfish's, block by block, in little-endian order")
{
    const struct
    {
        juce::uint32 left, right;
        const char* keystream;
    } cases[] = {
        { 5172093, 41927506, "fb558cac81c068e679e0764eac22198e8c5a9dfda0d4b983" },
        { 0, 0, "857347271324ca0c7169772e74f23feca08cde1c4997ab5b" },
        { 0xfffffffe, 0xffffffff, "aea934722806e77498e6dfa90c556d605be07dc41028bfd0" },
    };

    for (auto& c : cases)
    {
        juce::MemoryBlock expected;
        expected.loadFromHexString (c.keystream);

        // With and without a tail, and nothing but a tail; what follows the length stays as it was.
        for (const int length : { 24, 16, 13, 7, 0, -1 })
        {
            const auto size = (size_t) juce::jmax (0, length);
            juce::MemoryBlock data (24, true);
            auto left = c.left, right = c.right;
            applyKeystream (data.getData(), length, left, right);
            CHECK (std::memcmp (data.getData(), expected.getData(), size) == 0);
            CHECK (std::count (data.begin() + size, data.end(), 0) == (int) (24 - size));
            CHECK (left == c.left + (juce::uint32) size / 8 + 1);
            CHECK (right == c.right + (juce::uint32) size / 8 + 1);
        }
    }
}

TEST_CASE ("texts have their fixed printable forms")
{
    const struct
    {
        const char *text, *printable;
    } cases[] = {
        { "", "8.6WEirFHvnYN" },
        { "7 bytes", "8.LWm6UWeoaXN" },
        { "8 bytes!", "16.CWm6UWeoabbdfamSrJRFNB" },
        { "me@example.org", "16.VBCyImenEXYEEhUHdWTFNB" },
        { "pä$$wörd € 🎸", "24.KZIJHV5sqB0BDZEqt3XN9MA0kzOnTm6f" },
    };

    for (auto& c : cases)
    {
        CHECK (scrambleText (juce::CharPointer_UTF8 (c.text), 5172093, 41927506) == c.printable);
        CHECK (unscrambleText (c.printable, 5172093, 41927506) == juce::CharPointer_UTF8 (c.text));
    }
}

TEST_CASE ("a printable text that cannot be one gives no text, and any other gives valid text")
{
    for (auto* impossible :
         { "", ".", "x", "LWm6UWeoaXN", "-1.x", "-8.LWm6UWeoaXN", "8.", "8.LWm6UWeoaX", "9.LWm6UWeoaXN", "0.",
           "2147483647.A", "4294967304.LWm6UWeoaXN", "99999999999999999999.A", "0x8.LWm6UWeoaXN",
           "8 8.LWm6UWeoaXN", "é.LWm6UWeoaXN" })
    {
        CAPTURE (impossible);
        CHECK (unscrambleText (juce::CharPointer_UTF8 (impossible), 5172093, 41927506).isEmpty());
    }

    juce::Random random (1);

    for (int i = 0; i < 300; ++i)
    {
        juce::String printable ("24.");

        while (printable.length() < 3 + 32)
            printable << juce::String::charToString (
                (juce::juce_wchar) random.nextInt ({ 1, i < 150 ? 128 : 0x2000 }));

        const auto text = unscrambleText (printable, (juce::uint32) i, 0);
        REQUIRE (isValidText (text.toRawUTF8(), text.getNumBytesAsUTF8()));
    }
}
