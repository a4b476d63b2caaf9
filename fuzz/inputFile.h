#pragma once

#include <cstdint>
#include <juce_core/juce_core.h>

/** The input of a run as a file of a given name, for readers of files: in a folder of this process that goes with
    it, in memory where the system has such a place. */
inline juce::File inputFile (const char* name, const std::uint8_t* data, size_t size)
{
    struct folder
    {
        folder() { path.createDirectory(); }
        ~folder() { path.deleteRecursively(); }

        const juce::File memory{ "/dev/shm" };
        const juce::File path =
            (memory.isDirectory() ? memory : juce::File::getSpecialLocation (juce::File::tempDirectory))
                .getNonexistentChildFile ("rigmart-fuzz", {});
    };

    static const folder inputs;
    auto file = inputs.path.getChildFile (name);
    file.deleteFile();
    juce::FileOutputStream (file).write (data, size);
    return file;
}
