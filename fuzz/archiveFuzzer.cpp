#include "content/jSimpleArchive.h"
#include <climits>
#include <cstdint>

/** The reader's input is a file. It is kept in one place that is written again for every run, in memory where
    the system has such a place. */
static juce::File inputFile()
{
    const juce::File memory ("/dev/shm");
    const auto folder =
        memory.isDirectory() ? memory : juce::File::getSpecialLocation (juce::File::tempDirectory);
    static const juce::TemporaryFile file (folder.getChildFile ("fuzzed.sa"));
    return file.getFile();
}

extern "C" int LLVMFuzzerTestOneInput (const std::uint8_t* data, size_t size)
{
    const auto file = inputFile();
    file.deleteFile();
    juce::FileOutputStream (file).write (data, size);

    jSimpleArchive archive;
    archive.open (file.getFullPathName());

    juce::StringArray names;
    archive.findEntries ("*", names);
    archive.findEntries ("B*?.tx?", names);

    char header[16];

    for (const auto offset : { 0, 140, 148, -1, INT_MIN, INT_MAX })
        archive.readHeaderBytes (header, offset);

    for (auto& name : names)
    {
        const auto stream = archive.createInputStreamFor (name);

        if (! archive.contains (name) || stream == nullptr || stream->getTotalLength() > juce::int64 (size))
            std::abort(); // a listed entry is there, and holds no more than the file does

        juce::MemoryBlock bytes;
        stream->readIntoMemoryBlock (bytes);
    }

    archive.createInputStreamFor ("buildnumber.txt");

    if (archive.isValid() == names.isEmpty())
        std::abort();

    return 0;
}
