#pragma once

#include <juce_core/juce_core.h>

/** How pages and dialogs talk to their owner. Arguments that a text does not use are void values. Nobody
    deletes a listener through this interface, so it has no virtual destructor. */
class genericlistener
{
public:
    /** A one-way message. */
    virtual void handleMessage (const juce::String& text, const juce::var& a, const juce::var& b,
                                const juce::var& c) = 0;

    /** A request, answered at once on the calling thread; a void value for a text it does not know. */
    virtual juce::var handleRequest (const juce::String& text, const juce::var& a, const juce::var& b,
                                     const juce::var& c) = 0;

protected:
    ~genericlistener() = default;
};
