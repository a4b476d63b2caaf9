#define CATCH_CONFIG_RUNNER
#include "tests/support/freshFramework.h"
#include <catch2/catch.hpp>

/** Every run through a test case gets the framework anew: a store dialog that was closed ends the message
    manager, and no test may see another's windows, timers or animations. */
struct frameworkPerRun : Catch::TestEventListenerBase
{
    using TestEventListenerBase::TestEventListenerBase;

    void sectionStarting (const Catch::SectionInfo& section) override
    {
        TestEventListenerBase::sectionStarting (section);

        if (depth++ == 0)
            startFramework();
    }

    bool assertionEnded (const Catch::AssertionStats&) override { return false; }

    void sectionEnded (const Catch::SectionStats& section) override
    {
        if (--depth == 0)
            stopFramework();

        TestEventListenerBase::sectionEnded (section);
    }

    int depth = 0;
};

CATCH_REGISTER_LISTENER (frameworkPerRun)

int main (int argc, char* argv[])
{
    return std::min (Catch::Session().run (argc, argv), 1);
}
