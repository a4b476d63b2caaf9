#pragma once

#include <juce_core/juce_core.h>

/** A folder for the files of a benchmark, gone when the program ends. */
inline juce::File scratchFolder()
{
    struct folder
    {
        folder() { path.createDirectory(); }
        ~folder() { path.deleteRecursively(); }

        const juce::File path = juce::File::createTempFile ("rigmart-bench");
    };

    static const folder scratch;
    return scratch.path;
}
