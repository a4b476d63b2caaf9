#include "content/jSimpleArchive.h"

bool jSimpleArchive::isDirectory() const
{
    return false;
}
juce::String jSimpleArchive::getArchivePath() const
{
    return {};
}
void jSimpleArchive::findEntries (const juce::String&, juce::StringArray&) const
{}
bool jSimpleArchive::open (const juce::String&)
{
    return false;
}
bool jSimpleArchive::isValid() const
{
    return false;
}
void jSimpleArchive::readHeaderBytes (void*, int) const
{}
std::unique_ptr<juce::InputStream> jSimpleArchive::createInputStreamFor (const juce::String&) const
{
    return nullptr;
}
bool jSimpleArchive::contains (const juce::String&) const
{
    return false;
}
