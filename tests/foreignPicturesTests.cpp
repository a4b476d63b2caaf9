#include "ui/pictureDecoder.h"
#include <catch2/catch.hpp>

#if JUCE_LINUX

static bool isPicture (const juce::MemoryBlock& file, size_t size)
{
    juce::MemoryInputStream stream (file.getData(), size, false);
    return decodePicture (stream).isValid();
}

/** Those that are pictures of what a folder of the PNG or the JPEG library holds, which CTest has fetched. None may be
    one when it is cut, at any byte or any 97th of a large file. */
static juce::StringArray picturesIn (const char* folder)
{
    juce::StringArray pictures;

    for (auto& library : juce::File (LIBRARY_SOURCES).findChildFiles (juce::File::findDirectories, false))
        for (auto& path : library.getChildFile (folder).findChildFiles (juce::File::findFiles, false))
        {
            juce::MemoryBlock file;
            REQUIRE (path.loadFileAsData (file));
            const size_t step = file.getSize() > 16384 ? 97 : 1;
            auto cutPictures = 0;

            for (size_t size = 0; size < file.getSize(); size += step)
                cutPictures += isPicture (file, size) ? 1 : 0;

            INFO (path.getFileName() << ", cut");
            CHECK (cutPictures == 0);

            if (isPicture (file, file.getSize()))
                pictures.add (path.getFileName());
        }

    pictures.sort (false);
    return pictures;
}

TEST_CASE (
    "the pictures of the PNG library's suite and of the JPEG library are such, and none when cut anywhere")
{
    CHECK (picturesIn ("contrib/pngsuite").size() > 40);
    CHECK (picturesIn ("testimages")
           == juce::StringArray{ "testimgari.jpg", "testimgint.jpg", "testorig.jpg" });
}

#endif
