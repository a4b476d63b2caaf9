#pragma once

#include <juce_core/juce_core.h>

/** Puts the program-wide paths and readers back into the state in which the program starts. */
void forgetInstallation();

/** A fresh, empty installation folder that `installationFolder` names while this lives; removed with all that
    is in it. */
class temporaryInstallation
{
public:
    temporaryInstallation();
    ~temporaryInstallation();

    juce::File folder;

    /** Writes a file below the folder, with its parents. */
    juce::File write (const juce::String& path, const juce::MemoryBlock& bytes) const;
    juce::File write (const juce::String& path, const juce::String& text) const
    {
        return write (path, juce::MemoryBlock (text.toRawUTF8(), text.getNumBytesAsUTF8()));
    }

    /** Paths of all files below the folder, relative, with forward slashes, sorted. */
    juce::StringArray files() const;
};
