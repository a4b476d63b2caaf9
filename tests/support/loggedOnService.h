#pragma once

#include "app/installationPaths.h"
#include "net/storeService.h"
#include "tests/support/scriptedServer.h"

/** The service that a server is, for an account that is logged on. */
struct loggedOnService : storeService
{
    explicit loggedOnService (const scriptedServer& server)
        : storeService (server.origin(), ::installationFolder, token, enduser,
                        [] (const std::function<void()>& blockingCall) { blockingCall(); })
    {}

    const juce::String token{ "to ken" }, enduser{ "a+b@x.org" };
};
