#pragma once

#include <functional>
#include <juce_core/juce_core.h>
#include <string>
#include <vector>

/** A file or a folder of tests/. */
juce::File testFile (const juce::String& path);

/** All that a file holds. */
std::string bytesOf (const juce::File&);

/** The bytes that a text of a data file stands for: see tests/data/README.md. */
std::string expanded (const std::string& text);

/** A text that stands for some bytes. */
std::string escaped (const std::string& bytes);

/** Holds a function against each row of tests/data/`name`.txt: what it makes of the row's columns must be the row's
    outcome. */
void checkTable (const juce::String& name,
                 const std::function<std::string (const std::vector<std::string>& columns)>& outcome);
