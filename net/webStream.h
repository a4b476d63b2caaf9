#pragma once

#include <functional>
#include <juce_core/juce_core.h>
#include <memory>
#include <optional>

/** A longer session token counts as none, in bytes. */
static constexpr size_t maximumTokenSize = 16 << 10;

/** One request to the store or to an item's server. Built, used once. */
struct webRequest
{
    /** Absolute address, sent as it stands, query included. Only http and https are opened. */
    juce::String address;

    /** A form-encoded body makes the request a POST; without one it is a GET. */
    juce::String postData;

    /** Session token. Sent as the header "Authorization: " + token, without surrounding blanks and control
        characters; no such header when that leaves nothing, or more than 16 KB. Never sent to another origin. */
    juce::String token;

    /** Handed to the framework, which reports the sending of a body with it: bytes done and in all; false
        cancels. May be empty. */
    std::function<bool (int, int)> progress;
};

/** What came back. */
struct webReply
{
    /** The body, positioned at its start; null when no connection was made or no proper reply came. Once the head
        of a reply has arrived there is a stream, with whatever body comes. */
    std::unique_ptr<juce::WebInputStream> stream;

    /** Response headers, keys compared without regard to case. Empty without a stream. */
    juce::StringPairArray headers{ true };

    /** HTTP status of the last hop, 0 without a stream. A refusal (404, 500, ...) has a stream too. */
    int status = 0;
};

/** Sends a request and waits for the reply's headers, at most the system's 30 seconds of silence. Follows up to
    five redirects: relative addresses are resolved, a sixth redirect, one that comes more than three minutes after
    the first request, a redirect from https to http and one that would carry a POST body to another origin are no
    stream. Connections are kept for the next request to the same origin. Message thread; blocks. */
webReply openWebStream (const webRequest& request);

/** The request that follows a redirect with this status (301, 302, 303, 307 or 308) to this location, which may be
    relative; nothing when none may follow. */
std::optional<webRequest> redirected (const webRequest& request, int status, const juce::String& location);
