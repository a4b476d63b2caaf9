#include "base/boundedReading.h"
#include "net/webStream.h"
#include <catch2/catch.hpp>

/** What the TLS server of trustTest.sh says under a name; empty without a stream. These cases belong to no test
    file, so that only the script runs them. */
static juce::String tlsServerText (const juce::String& host)
{
    const auto port = juce::SystemStats::getEnvironmentVariable ("TEST_TLS_PORT", {});
    REQUIRE (port.isNotEmpty());
    const auto reply = openWebStream ({ "https://" + host + ":" + port + "/reply", {}, {}, {} });
    return reply.stream == nullptr ? juce::String() : readAtMost (*reply.stream).toString();
}

TEST_CASE ("a TLS server that the system does not trust is not spoken to", "[.untrusted]")
{
    CHECK (tlsServerText ("localhost").isEmpty());
}

TEST_CASE ("a TLS server that the system trusts answers, under its own name only", "[.trusted]")
{
    CHECK (tlsServerText ("127.0.0.1").isEmpty());
    CHECK (tlsServerText ("localhost") == "trusted");
}
