#include "net/webStream.h"
#include "net/webAddress.h"

static constexpr int maximumRedirects = 5;
static constexpr double redirectsMs = 180000.0;

/** A token as it can stand in one header line. */
static juce::String headerValue (const juce::String& token)
{
    juce::MemoryOutputStream value;

    for (auto text = token.getCharPointer(); ! text.isEmpty(); ++text)
        if (*text >= 0x20 && *text != 0x7f)
            value.appendUTF8Char (*text);

    const auto trimmed = value.toUTF8().trim();
    return trimmed.getNumBytesAsUTF8() > maximumTokenSize ? juce::String() : trimmed;
}

/** Sends one request and follows no redirect: the framework's back ends follow them differently, and with the
    body and the token to anywhere. */
static webReply sendOnce (const webRequest& request)
{
    if (originOf (request.address).isEmpty())
        return {};

    const auto isPost = request.postData.isNotEmpty();
    auto url = juce::URL::createWithoutParsing (sendableAddress (request.address));
    juce::String requestHeaders;

    if (isPost)
    {
        url = url.withPOSTData (request.postData);

        // The framework would add this line, but not when it finds its name anywhere, even in the token.
        requestHeaders << "Content-Type: application/x-www-form-urlencoded\r\n";
    }

    if (const auto token = headerValue (request.token); token.isNotEmpty())
        requestHeaders << "Authorization: " << token;

    using options = juce::URL::InputStreamOptions;
    using parameters = juce::URL::ParameterHandling;
    webReply reply;
    auto stream = url.createInputStream (options (isPost ? parameters::inPostData : parameters::inAddress)
                                             .withExtraHeaders (requestHeaders)
                                             .withProgressCallback (request.progress)
                                             .withResponseHeaders (&reply.headers)
                                             .withStatusCode (&reply.status)
                                             .withNumRedirectsToFollow (0));

    // For http and https the framework makes no other stream.
    reply.stream.reset (dynamic_cast<juce::WebInputStream*> (stream.release()));

    // A reply that broke off can leave headers without a stream, or a stream without a status.
    if (reply.stream == nullptr || reply.status == 0)
        return {};

    return reply;
}

static bool isRedirect (const webReply& reply)
{
    static constexpr int redirects[] = { 301, 302, 303, 307, 308 };
    return std::find (std::begin (redirects), std::end (redirects), reply.status) != std::end (redirects)
           && reply.headers["Location"].isNotEmpty();
}

std::optional<webRequest> redirected (const webRequest& request, int status, const juce::String& location)
{
    auto next = request;
    next.address = resolveAddress (request.address, location);

    if (status <= 303)
        next.postData.clear();

    const auto from = originOf (request.address);
    const auto to = originOf (next.address);

    if (to == from)
        return next;

    if (next.postData.isNotEmpty() || to.isEmpty() || (from.startsWith ("https:") && to.startsWith ("http:")))
        return {};

    next.token.clear();
    return next;
}

webReply openWebStream (const webRequest& request)
{
    const auto start = juce::Time::getMillisecondCounterHiRes();
    auto hop = std::make_optional (request);

    for (int redirects = 0; hop.has_value(); ++redirects)
    {
        auto reply = sendOnce (*hop);

        if (! isRedirect (reply))
            return reply;

        if (redirects == maximumRedirects || juce::Time::getMillisecondCounterHiRes() - start > redirectsMs)
            break;

        hop = redirected (*hop, reply.status, reply.headers["Location"]);
    }

    return {};
}
