#include "bench/figures.h"
#include "net/dataScrambler.h"
#include <juce_cryptography/juce_cryptography.h>
#include <vector>

static constexpr char key[] = "Plain text is fine: 40917362058kq913x";
static constexpr size_t size = size_t (64) * 1024 * 1024;

static std::vector<juce::uint32>& buffer()
{
    static std::vector<juce::uint32> words (size / 4, 0x5a5a5a5a);
    return words;
}

static bool scramble()
{
    juce::uint32 left = 1, right = 2;
    applyKeystream (buffer().data(), size, left, right);
    return left != 1;
}

static bool loopOverFrameworkCipher()
{
    static const juce::BlowFish cipher (key, int (sizeof (key)) - 1);
    juce::uint32 left = 1, right = 2;

    for (size_t i = 0; i < buffer().size(); i += 2)
    {
        auto a = left++, b = right++;
        cipher.encrypt (a, b);
        buffer()[i] ^= a;
        buffer()[i + 1] ^= b;
    }

    return left != 1;
}

static const int registered = [] {
    addFigure ({ "scrambling 64 MiB", "bare loop over the framework's cipher", 0.97, 11 }, timed (scramble),
               timed (loopOverFrameworkCipher));
    return 0;
}();
