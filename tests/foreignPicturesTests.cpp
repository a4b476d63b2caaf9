#include "ui/pictureDecoder.h"
#include <catch2/catch.hpp>

#if JUCE_LINUX

/** The pictures that the PNG and the JPEG library come with. CTest has them fetched, and gives up on a decoder that
    does not come back. */
static juce::Array<juce::File> foreignPictures (const char* folder, const char* pattern)
{
    juce::Array<juce::File> found;

    for (auto& library : juce::File (LIBRARY_SOURCES).findChildFiles (juce::File::findDirectories, false))
        found.addArray (library.getChildFile (folder).findChildFiles (juce::File::findFiles, false, pattern));

    return found;
}

static juce::Image decode (const juce::MemoryBlock& bytes, size_t size)
{
    juce::MemoryInputStream stream (bytes.getData(), size, false);
    return decodePicture (stream);
}

/** Decodes a picture whole, and cut at every byte, or every 97th of a large one; true when it is a picture whole and
    none when cut. */
static bool isPictureOnlyWhole (const juce::File& file)
{
    juce::MemoryBlock bytes;
    REQUIRE (file.loadFileAsData (bytes));
    const size_t step = bytes.getSize() > 16384 ? 97 : 1;
    auto cutPictures = 0;

    for (size_t size = 0; size < bytes.getSize(); size += step)
        cutPictures += decode (bytes, size).isValid() ? 1 : 0;

    INFO (file.getFileName() << ": " << cutPictures << " cut ones");
    CHECK (cutPictures == 0);
    return decode (bytes, bytes.getSize()).isValid();
}

TEST_CASE ("every picture of the PNG library's suite is one, and none when it is cut anywhere")
{
    const auto files = foreignPictures ("contrib/pngsuite", "*.png");
    CHECK (files.size() > 40);

    for (auto& file : files)
    {
        CAPTURE (file.getFileName());
        CHECK (isPictureOnlyWhole (file));
    }
}

TEST_CASE ("the JPEG library's pictures are decoded, and what is none of ours is no picture")
{
    const auto files = foreignPictures ("testimages", "*");
    juce::StringArray decoded;

    for (auto& file : files)
        if (isPictureOnlyWhole (file))
            decoded.add (file.getFileName());

    decoded.sort (false);
    CHECK (decoded == juce::StringArray{ "testimgari.jpg", "testimgint.jpg", "testorig.jpg" });
}

#endif
