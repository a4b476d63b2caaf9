#pragma once

#include <juce_core/juce_core.h>

/** Scheme, host and port of an http or https address, in lower case and without a port that is the scheme's own:
    equal for addresses that lead to the same server. Empty for any other address. */
juce::String originOf (const juce::String& address);

/** The address without its fragment, which a server is not told, and with its path and query escaped where they
    could not stand in a request line. */
juce::String sendableAddress (const juce::String& address);

/** The absolute address that a reference, such as the location a redirect names, means on the page `base`
    (RFC 3986, 5.2). */
juce::String resolveAddress (const juce::String& base, const juce::String& reference);
