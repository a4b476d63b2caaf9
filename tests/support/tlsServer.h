#pragma once

#include <juce_core/juce_core.h>
#include <memory>
#include <string>

/** A web server on the loopback interface that speaks TLS, with a certificate for 127.0.0.1 that it signed
    itself. It answers every POST with "<r/>" and every GET with a redirect. Linux only. */
class tlsServer
{
public:
    explicit tlsServer (const juce::String& redirectsTo = "http://127.0.0.1:1/");
    ~tlsServer();

    /** "https://127.0.0.1:" and the port. */
    juce::String origin() const;

    /** Its certificate, for those who are to trust it. */
    std::string certificate() const;

    /** How many requests it has read. */
    int requestCount() const;

private:
    struct server;
    std::unique_ptr<server> running;

    JUCE_DECLARE_NON_COPYABLE (tlsServer)
};
