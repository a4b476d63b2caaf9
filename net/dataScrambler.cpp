#include "net/dataScrambler.h"
#include "base/validText.h"
#include <algorithm>
#include <cstring>
#include <juce_cryptography/juce_cryptography.h>

static constexpr char keyText[] = "Plain text is fine: 40917362058kq913x";
static constexpr size_t blockSize = 8;

/** Made before the program starts; its key schedule is only read afterwards. */
static const juce::BlowFish cipher (keyText, (int) sizeof (keyText) - 1);

/** Combines one block with the keystream of a counter pair. The cipher sees the counters as numbers; the bytes
    are the little-endian view of its output. */
static void combineBlock (char* block, juce::uint32 left, juce::uint32 right)
{
    juce::uint32 words[2];
    static_assert (sizeof (words) == blockSize);

    cipher.encrypt (left, right);
    std::memcpy (words, block, blockSize);
    words[0] ^= juce::ByteOrder::swapIfBigEndian (left);
    words[1] ^= juce::ByteOrder::swapIfBigEndian (right);
    std::memcpy (block, words, blockSize);
}

void applyKeystream (void* data, int length, juce::uint32& left, juce::uint32& right)
{
    auto* block = static_cast<char*> (data);
    auto remaining = (size_t) juce::jmax (0, length);
    auto a = left, b = right;

    for (; remaining >= blockSize; remaining -= blockSize, block += blockSize)
        combineBlock (block, a++, b++);

    // A tail costs a counter pair even when it is empty.
    char tail[blockSize] = {};
    std::copy_n (block, remaining, tail);
    combineBlock (tail, a++, b++);
    std::copy_n (tail, remaining, block);

    left = a;
    right = b;
}

juce::String scrambleText (const juce::String& text, juce::uint32 left, juce::uint32 right)
{
    const auto textSize = text.getNumBytesAsUTF8();
    juce::MemoryBlock block ((textSize + blockSize) / blockSize * blockSize, true);
    block.copyFrom (text.toRawUTF8(), 0, textSize);
    applyKeystream (block.getData(), (int) block.getSize(), left, right);
    return block.toBase64Encoding();
}

/** The bytes behind a printable form; none when its size is negative or larger than the characters that follow can
    hold. The framework's decoder reads the size in the same way and allocates whatever it says. */
static juce::MemoryBlock decodePrintable (const juce::String& printable)
{
    const auto point = printable.indexOfChar ('.');
    const auto size = (juce::int64) printable.substring (0, point).getIntValue();
    const auto characters = (juce::int64) printable.length() - point - 1;
    juce::MemoryBlock block;

    if (point >= 0 && size >= 0 && size * 8 <= characters * 6)
        block.fromBase64Encoding (printable);

    return block;
}

juce::String unscrambleText (const juce::String& printable, juce::uint32 left, juce::uint32 right)
{
    auto block = decodePrintable (printable);
    applyKeystream (block.getData(), (int) block.getSize(), left, right);
    return validText (block.getData(), block.getSize());
}
