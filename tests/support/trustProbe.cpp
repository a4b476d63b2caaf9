#include "net/boundedReading.h"
#include "net/webStream.h"
#include <catch2/catch.hpp>

/** What the TLS server says that trustTest.sh has started; empty without a stream. These cases belong to no test
    file, so that only the script runs them. */
static juce::String tlsServerText()
{
    const auto address = juce::SystemStats::getEnvironmentVariable ("TEST_TLS_SERVER", {});
    REQUIRE (address.isNotEmpty());
    const auto reply = openWebStream ({ address, {}, {}, {} });
    return reply.stream == nullptr ? juce::String() : readAtMost (*reply.stream).toString();
}

TEST_CASE ("a TLS server that the system does not trust is not spoken to", "[.untrusted]")
{
    CHECK (tlsServerText().isEmpty());
}

TEST_CASE ("a TLS server that the system trusts answers", "[.trusted]")
{
    CHECK (tlsServerText() == "trusted");
}
