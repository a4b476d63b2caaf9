#include "bench/figures.h"
#include "net/dataScrambler.h"
#include <juce_cryptography/juce_cryptography.h>
#include <openssl/blowfish.h>
#include <vector>

static constexpr char key[] = "Plain text is fine: 40917362058kq913x";
static constexpr int size = 64 * 1024 * 1024;

static std::vector<juce::uint32>& buffer()
{
    static std::vector<juce::uint32> words (size / 4, 0x5a5a5a5a);
    return words;
}

static void scramble (benchmark::State& state)
{
    for (auto _ : state)
    {
        juce::uint32 left = 1, right = 2;
        applyKeystream (buffer().data(), size, left, right);
        benchmark::ClobberMemory();
    }
}

static void loopOverFrameworkCipher (benchmark::State& state)
{
    const juce::BlowFish cipher (key, int (sizeof (key)) - 1);

    for (auto _ : state)
    {
        juce::uint32 left = 1, right = 2;

        for (size_t i = 0; i < buffer().size(); i += 2)
        {
            auto a = left++, b = right++;
            cipher.encrypt (a, b);
            buffer()[i] ^= a;
            buffer()[i + 1] ^= b;
        }

        benchmark::ClobberMemory();
    }
}

#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wdeprecated-declarations" // kept by OpenSSL for old data, and fast

static void loopOverOpenSsl (benchmark::State& state)
{
    BF_KEY schedule;
    BF_set_key (&schedule, int (sizeof (key)) - 1, reinterpret_cast<const unsigned char*> (key));

    for (auto _ : state)
    {
        juce::uint32 left = 1, right = 2;

        for (size_t i = 0; i < buffer().size(); i += 2)
        {
            BF_LONG words[2] = { left++, right++ };
            BF_encrypt (words, &schedule);
            buffer()[i] ^= words[0];
            buffer()[i + 1] ^= words[1];
        }

        benchmark::ClobberMemory();
    }
}

#pragma GCC diagnostic pop

static const int registered = [] {
    addFigure ({ "scrambling 64 MiB", "bare loop over the framework's cipher", 0.97 }, scramble,
               loopOverFrameworkCipher);
    addFigure ({ "scrambling 64 MiB", "OpenSSL's Blowfish", 1.0 }, scramble, loopOverOpenSsl);
    return 0;
}();
