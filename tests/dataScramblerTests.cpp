#include "net/dataScrambler.h"
#include "tests/support/dataTable.h"
#include <catch2/catch.hpp>

// The bytes in the tables are those of OpenSSL's Blowfish under the same key, not this program's own: for each block,
// BF_encrypt of the counter pair, both halves then written in little-endian order. The printable texts were made of
// them with the framework's alphabet by a script of a few lines.

TEST_CASE ("the keystream is Blowfish's, block by block, in little-endian order")
{
    checkTable ("keystream", [] (auto& columns) {
        auto left = (juce::uint32) std::stoul (columns[0]), right = (juce::uint32) std::stoul (columns[1]);
        juce::MemoryBlock zeros (24, true);
        applyKeystream (zeros.getData(), std::stoi (columns[2]), left, right);
        return juce::String::toHexString (zeros.getData(), 24, 8).toStdString() + ", " + std::to_string (left)
               + ", " + std::to_string (right);
    });
}

TEST_CASE ("texts have fixed printable forms")
{
    checkTable ("scrambled",
                [] (auto& columns) { return scrambleText (columns[0], 5172093, 41927506).toStdString(); });
}

TEST_CASE ("a printable form gives its text, and what cannot be one gives none")
{
    checkTable ("unscrambled",
                [] (auto& columns) { return unscrambleText (columns[0], 5172093, 41927506).toStdString(); });
}
