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
        { "\xef\xbb\xbf\xc3\xa9\xe2\x82\xac\xf0\x9f\x8e\xb8\xef\xbf\xbf\xf4\x8f\xbf\xbf",
          "" }, // exactly as it is
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
        CHECK (text.toStdString() == (c.text.empty() ? c.bytes : c.text));
        CHECK (juce::CharPointer_UTF8::isValidString (text.toRawUTF8(), (int) text.getNumBytesAsUTF8()));
    }

    CHECK (validText (nullptr, 0).isEmpty());
}
