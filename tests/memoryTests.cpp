#include "content/jSimpleArchiveDirectory.h"
#include "sandbox/archiveWriter.h"
#include "tests/support/dataTable.h"
#include "tests/support/temporaryInstallation.h"
#include "ui/pictureDecoder.h"
#include <catch2/catch.hpp>

#if JUCE_LINUX

    #include <sys/resource.h>
    #include <sys/wait.h>
    #include <unistd.h>

/** Whether an action ends, and says that all is well, in a process that has 100 MB left. */
static bool isWellWithLittleMemory (const std::function<bool()>& action)
{
    const auto child = fork();

    if (child == 0)
    {
        juce::MemoryBlock pages;
        juce::File ("/proc/self/statm").loadFileAsData (pages);
        const auto used = (rlim_t) pages.toString().getLargeIntValue() * (rlim_t) sysconf (_SC_PAGESIZE);
        const rlimit limit{ used + (100 << 20), used + (100 << 20) };
        setrlimit (RLIMIT_AS, &limit);
        _exit (action() ? 0 : 1);
    }

    int status = 1;
    return waitpid (child, &status, 0) == child && status == 0;
}

/** Makes a file go on in zeros for as long as anybody reads, and returns its path. */
static juce::String endless (const juce::File& file)
{
    REQUIRE (truncate (file.getFullPathName().toRawUTF8(), (off_t) 1 << 42) == 0);
    return file.getFullPathName();
}

/** Reads an endless entry: whole it is nothing, and five bytes of it are there. */
static bool isServed (jSimpleArchive&& reader, const juce::String& path)
{
    return reader.open (path) && reader.createInputStreamFor ("endless")->getTotalLength() == 0
           && reader.createInputStreamFor ("endless", 5)->getTotalLength() == 5;
}

TEST_CASE_METHOD (temporaryInstallation, "an endless entry of an archive or a folder is not had whole")
{
    const auto largest = std::numeric_limits<int>::max();
    archiveWriter writer{ 3, { { "endless", "1", true, largest } } };
    const auto archive = endless (write ("endless.sa", writer.write()));
    writer.wrongCount = largest;
    const auto crowded = endless (write ("crowded.sa", writer.write()));
    endless (write ("folder/endless", ""));

    CHECK (isWellWithLittleMemory ([&] { return isServed (jSimpleArchive(), archive); }));
    CHECK (isWellWithLittleMemory ([&] { return isServed (jSimpleArchiveDirectory(), path + "/folder"); }));
    CHECK (isWellWithLittleMemory ([&] { return jSimpleArchive().open (crowded) || true; }));
}

TEST_CASE ("a small picture that announces to be a large one is none")
{
    auto picture = bytesOf (testFile ("data/noise.jpg"));                      // of 16 x 16 pixels
    picture.replace (picture.find ("\xff\xc0") + 5, 4, "\x20\x00\x20\x00", 4); // 8192 x 8192 pixels

    CHECK (isWellWithLittleMemory ([&] {
        juce::MemoryInputStream stream (picture.data(), picture.size(), false);
        return ! decodePicture (stream).isValid();
    }));
}

#endif
