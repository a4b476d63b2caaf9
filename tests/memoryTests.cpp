#include "app/installationPaths.h"
#include "content/jSimpleArchiveDirectory.h"
#include "content/receiveBuffer.h"
#include "net/rememberedLogin.h"
#include "sandbox/archiveWriter.h"
#include "tests/support/temporaryInstallation.h"
#include "ui/pictureDecoder.h"
#include <catch2/catch.hpp>

#if JUCE_LINUX

    #include <sys/resource.h>
    #include <sys/wait.h>
    #include <unistd.h>

/** Runs an action in a process that has 100 MB left, and returns whether it ends well. */
static bool survivesWithLittleMemory (const std::function<void()>& action)
{
    const auto child = fork();

    if (child == 0)
    {
        juce::MemoryBlock pages;
        juce::File ("/proc/self/statm").loadFileAsData (pages);
        const auto used = (rlim_t) pages.toString().getLargeIntValue() * (rlim_t) sysconf (_SC_PAGESIZE);
        const rlimit limit{ used + (100 << 20), used + (100 << 20) };
        setrlimit (RLIMIT_AS, &limit);
        action();
        _exit (0);
    }

    int status = 1;
    return waitpid (child, &status, 0) == child && status == 0;
}

/** A file that goes on in zeros for as long as anybody reads. */
static void makeEndless (const juce::File& file)
{
    REQUIRE (truncate (file.getFullPathName().toRawUTF8(), (off_t) 1 << 42) == 0);
}

TEST_CASE ("no size in a file makes the program ask for more memory than there is, and end")
{
    const temporaryInstallation installation;
    archiveWriter writer{ 3, { { "endless", "1", true, std::numeric_limits<int>::max() } } };
    const auto archive = installation.write ("endless.sa", writer.write());
    writer.wrongCount = std::numeric_limits<int>::max();
    const auto crowded = installation.write ("crowded.sa", writer.write());
    const auto loose = installation.write ("folder/endless", "1");

    for (auto& file : { archive, crowded, loose })
        makeEndless (file);

    CHECK (survivesWithLittleMemory ([&] {
        jSimpleArchive reader, crowdedReader;
        jSimpleArchiveDirectory folder;
        reader.open (archive.getFullPathName());
        crowdedReader.open (crowded.getFullPathName());
        folder.open (loose.getParentDirectory().getFullPathName());

        for (auto* source : { &reader, static_cast<jSimpleArchive*> (&folder) })
            if (source->createInputStreamFor ("endless")->getTotalLength() != 0
                || source->createInputStreamFor ("endless", 5)->getTotalLength() != 5)
                _exit (1);
    }));

    // A small picture that announces to be a large one.
    juce::MemoryOutputStream small;
    REQUIRE (
        juce::JPEGImageFormat().writeImageToStream (juce::Image (juce::Image::RGB, 16, 16, true), small));
    auto picture = small.getMemoryBlock();
    const auto frame =
        std::search (picture.begin(), picture.end(), "\xff\xc0", "\xff\xc0" + 2) - picture.begin();

    for (auto offset : { 5, 7 })
        picture[(size_t) frame + (size_t) offset] = 0x20; // 8192 and something

    picture[(size_t) frame + 6] = picture[(size_t) frame + 8] = 0;

    CHECK (survivesWithLittleMemory ([&] {
        juce::MemoryInputStream stream (picture, false);

        if (decodePicture (stream).isValid())
            _exit (1);
    }));

    CHECK (survivesWithLittleMemory ([&] {
        installation.write ("rememberme.txt", "2147483647.AAAA\n999999999.AAAA\n");
        rememberedLogin (installation.folder.getFullPathName()).load();
        receiveBuffer body (size_t{ 1 } << 31);

        if (body.makeSpace().size != 0)
            _exit (1);
    }));
}

#endif
