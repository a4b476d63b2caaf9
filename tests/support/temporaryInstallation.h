#pragma once

#include <juce_core/juce_core.h>

/** Puts the program-wide paths and readers back into the state in which the program starts. */
void forgetInstallation();

/** The name of a file that is being written in a folder, as a program that was killed leaves it. */
juce::String abandonedName (const juce::File& folder);

/** A fresh, empty installation folder that `installationFolder` names while this lives; removed with all that
    is in it. */
struct temporaryInstallation
{
    temporaryInstallation();
    ~temporaryInstallation();

    const juce::File folder = juce::File::createTempFile ("rigmart-install");
    const juce::String path = folder.getFullPathName();

    /** Writes a file below the folder, with its parents. */
    juce::File write (const juce::String& name, const juce::MemoryBlock& bytes) const;
    juce::File write (const juce::String& name, const std::string& bytes) const
    {
        return write (name, juce::MemoryBlock (bytes.data(), bytes.size()));
    }

    /** Paths of all files below the folder, relative, with forward slashes, sorted. */
    juce::StringArray files() const;
};
