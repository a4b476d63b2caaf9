#pragma once

#include "store/genericlistener.h"
#include <functional>

/** Stands in for the owner of a page or a dialog: writes down what it is told and asked, one line each with the
    arguments that are not void, and answers as it is told to. */
struct recordingListener : genericlistener
{
    juce::StringArray calls;

    /** Answers requests; a void value without it. Called after the request was written down. */
    std::function<juce::var (const juce::String& text)> answer;

    /** Called with each message after it was written down. */
    std::function<void (const juce::String& text)> whenTold;

    void handleMessage (const juce::String& text, const juce::var& a, const juce::var& b,
                        const juce::var& c) override
    {
        note (text, a, b, c);
        juce::NullCheckedInvocation::invoke (whenTold, text);
    }

    juce::var handleRequest (const juce::String& text, const juce::var& a, const juce::var& b,
                             const juce::var& c) override
    {
        note (text, a, b, c);
        return answer != nullptr ? answer (text) : juce::var();
    }

private:
    void note (juce::String line, const juce::var& a, const juce::var& b, const juce::var& c)
    {
        for (auto* argument : { &a, &b, &c })
            if (! argument->isVoid())
                line << " | " << argument->toString();

        calls.add (line);
    }
};
