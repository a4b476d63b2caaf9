#pragma once

#include <juce_core/juce_core.h>
#include <memory>

/** Parses a reply of the web service. Null for a text that is not XML, and for one that is not XML for us: with an
    entity declaration or an internal document type subset, nested deeper than 200 elements, or with an ampersand
    that starts no reference.

    The framework's parser is lenient, and so is this: tags that do not match, a cut last tag and text after the
    root element pass. */
std::unique_ptr<juce::XmlElement> parseReply (const juce::String& text);
