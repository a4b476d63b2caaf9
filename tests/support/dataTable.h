#pragma once

#include <functional>
#include <juce_core/juce_core.h>
#include <string>
#include <vector>

/** A file or a folder of tests/. */
juce::File testFile (const juce::String& path);

/** The bytes that a text of a data file stands for: see tests/data/README.md. */
std::string expanded (const std::string& text);

/** Holds a function against each row of tests/data/`name`.txt: what it makes of the row's columns must be the row's
    outcome. */
void checkTable (const char* name,
                 const std::function<std::string (const std::vector<std::string>& columns)>& outcome);
