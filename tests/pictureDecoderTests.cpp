#include "tests/support/dataTable.h"
#include "ui/pictureDecoder.h"
#include <catch2/catch.hpp>

static bool isPicture (const std::string& file)
{
    juce::MemoryInputStream stream (file.data(), file.size(), false);
    return decodePicture (stream).isValid();
}

TEST_CASE ("a picture is one when it is whole, none when it is cut anywhere, and harmless when it is damaged")
{
    for (auto& file : { bytesOf (testFile ("data/noise.png")), bytesOf (testFile ("data/noise.jpg")) })
    {
        for (size_t i = 0; i < file.size(); ++i)
        {
            CAPTURE (i, file.size());
            CHECK_FALSE (isPicture (file.substr (0, i)));

            auto flipped = file;
            flipped[i] = (char) (flipped[i] ^ (1 << i % 8));
            isPicture (flipped);
        }

        CHECK (isPicture (file));
    }
}

TEST_CASE ("a PNG with damaged pixels is no picture")
{
    auto file = bytesOf (testFile ("data/noise.png"));
    file[60] = (char) ~file[60]; // inside the compressed pixels, which a check sum covers
    CHECK_FALSE (isPicture (file));
}

TEST_CASE ("a JPEG with more scans than any honest one has is no picture")
{
    // 8 x 8 pixels in seven scans, of which the last is repeated
    const auto file = bytesOf (testFile ("data/progressive.jpg"));
    const auto lastScan = file.substr (file.rfind ("\xff\xda"));
    auto repeated = file;

    for (int i = 0; i < 200; ++i)
        repeated.insert (file.size() - lastScan.size(), lastScan, 0, lastScan.size() - 2);

    CHECK (isPicture (file));
    CHECK_FALSE (isPicture (repeated));
}

TEST_CASE ("a PNG that ends inside a chunk of text is no picture")
{
    const auto png = bytesOf (testFile ("data/noise.png"));
    const auto signatureAndHeader = png.substr (0, 33);
    CHECK_FALSE (isPicture (signatureAndHeader + expanded ("\\x00\\x00\\x10\\x00tEXtComment")));
}

#if JUCE_LINUX
/** Those that are pictures of what a folder of the PNG or the JPEG library holds, which CTest has fetched. None may be
    one when it is cut, at any byte or any 97th of a large file. */
static juce::StringArray picturesIn (const char* folder)
{
    juce::StringArray pictures;

    for (auto& library : juce::File (LIBRARY_SOURCES).findChildFiles (juce::File::findDirectories, false))
        for (auto& path : library.getChildFile (folder).findChildFiles (juce::File::findFiles, false))
        {
            const auto file = bytesOf (path);
            const size_t step = file.size() > 16384 ? 97 : 1;
            auto cutPictures = 0;

            for (size_t size = 0; size < file.size(); size += step)
                cutPictures += isPicture (file.substr (0, size)) ? 1 : 0;

            INFO (path.getFileName() << ", cut");
            CHECK (cutPictures == 0);

            if (isPicture (file))
                pictures.add (path.getFileName());
        }

    pictures.sort (false);
    return pictures;
}

// Hidden, because it runs after these have been fetched.
TEST_CASE ("the pictures of the PNG and the JPEG library are such, and none when cut anywhere",
           "[.foreignPictures]")
{
    CHECK (picturesIn ("contrib/pngsuite").size() > 40);
    CHECK (picturesIn ("testimages")
           == juce::StringArray{ "testimgari.jpg", "testimgint.jpg", "testorig.jpg" });
}
#endif
