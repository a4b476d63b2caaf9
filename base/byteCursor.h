#pragma once

#include <juce_core/juce_core.h>

/** Walks through bytes that may end too early. The first step past the end sets a flag that stays set; from then
    on everything reads as zero. So a whole record is decoded first and the flag is looked at once. */
class byteCursor
{
public:
    /** The bytes are not copied and must outlive the cursor. */
    byteCursor (const void* bytes, size_t size)
        : next (static_cast<const char*> (bytes)),
          remaining (size)
    {}

    /** The next `count` bytes, or null when there are not that many. */
    const char* take (size_t count)
    {
        if (count > remaining)
        {
            remaining = 0;
            failed = true;
        }

        if (failed)
            return nullptr;

        const auto* taken = next;
        next += count;
        remaining -= count;
        return taken;
    }

    /** The next 4 bytes as a little-endian number. */
    juce::uint32 takeWord()
    {
        const auto* bytes = take (4);
        return bytes != nullptr ? juce::ByteOrder::littleEndianInt (bytes) : 0;
    }

    /** Whether a step went past the end. */
    bool hasFailed() const { return failed; }

private:
    const char* next;
    size_t remaining;
    bool failed = false;
};
