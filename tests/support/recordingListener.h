#pragma once

#include "store/genericlistener.h"
#include <functional>

/** Stands in for the owner of a page or a dialog: writes down what it is told and asked, one line each with the
    arguments that are not void, and answers as it is told to. */
struct recordingListener : genericlistener
{
    juce::StringArray calls;

    /** Called with each text after it was written down; answers it if it is a request. */
    std::function<juce::var (const juce::String& text)> answer = [] (auto&) { return juce::var(); };

    void handleMessage (const juce::String& text, const juce::var& a, const juce::var& b,
                        const juce::var& c) override
    {
        handleRequest (text, a, b, c);
    }

    juce::var handleRequest (const juce::String& text, const juce::var& a, const juce::var& b,
                             const juce::var& c) override
    {
        auto line = text;

        for (auto* argument : { &a, &b, &c })
            if (! argument->isVoid())
                line << " | " << argument->toString();

        calls.add (line);
        return answer (text);
    }
};
