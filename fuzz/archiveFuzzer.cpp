#include "content/jSimpleArchive.h"
#include "fuzz/inputFile.h"
#include <climits>

extern "C" int LLVMFuzzerTestOneInput (const std::uint8_t* data, size_t size)
{
    jSimpleArchive archive;
    archive.open (inputFile ("fuzzed.sa", data, size).getFullPathName());

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
