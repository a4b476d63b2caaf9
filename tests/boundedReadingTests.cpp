#include "base/boundedReading.h"
#include <catch2/catch.hpp>

TEST_CASE ("reading stops where it is told, and at 64 MB")
{
    juce::MemoryInputStream stream (juce::MemoryBlock (maximumReplySize + 65538, true));
    CHECK (readAtMost (stream, 65537).getSize() == 65537);
    CHECK (readAtMost (stream).getSize() == maximumReplySize);
}

/** 2,000 bytes a second. */
struct slowStream : juce::MemoryInputStream
{
    using MemoryInputStream::MemoryInputStream;

    int read (void* bytes, int size) override
    {
        juce::Thread::sleep (50);
        return MemoryInputStream::read (bytes, juce::jmin (size, 100));
    }
};

/** How many bytes of 3,000 are read with this patience. */
static size_t readSlowly (const readingPatience& patience)
{
    slowStream stream (juce::MemoryBlock (3000));
    return readAtMost (stream, 5000, patience).getSize();
}

TEST_CASE ("a text that comes too slowly, or takes too long, is none")
{
    CHECK (readSlowly ({ 1, 1000, 10 }) == 3000);
    CHECK (readSlowly ({ 1, 4000, 10 }) == 0);
    CHECK (readSlowly ({ 1, 1000, 1 }) == 0);
}
