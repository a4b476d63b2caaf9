#pragma once

#include <functional>
#include <juce_core/juce_core.h>
#include <memory>
#include <optional>
#include <string>

/** Conversations with the store's web service. Each blocks until the whole reply is there or the connection has
    failed, and shows its own failures in message boxes: afterwards a caller checks that it still exists, and the
    service itself touches nothing of its own. Message thread. No message, file name or title ever holds a password
    or a token. */
class storeService
{
public:
    /** Runs a call that blocks the message thread, with whatever the user is to see meanwhile. */
    using waiting = std::function<void (const std::function<void()>&)>;

    /** @param origin        scheme, host and port of the service, without a trailing slash
        @param folder        where a reply that is not XML is kept; nowhere when it is no absolute path
        @param tokenToSend   the session token, empty before a log-on; read at each request, like the next
        @param addressToName the e-mail address of the account that is logged on
        @param howToWait     wraps what blocks */
    storeService (const juce::String& origin, const juce::String& folder, const juce::String& tokenToSend,
                  const juce::String& addressToName, waiting howToWait);

    /** Asks for a page of the service: a POST of the data that `url` holds. With the session token, unless that is
        empty. Returns the root of the XML reply, or null when a failure was shown. A reply that is not XML is kept in
        the installation folder. */
    std::unique_ptr<juce::XmlElement> postToServer (const juce::URL& url, bool usePost,
                                                    const juce::String& token) const;

    /** Asks for an action on the account that is logged on, such as key "list" with value "mediareview"; the pair is
        sent when neither is empty. errorText becomes the service's message when the action failed, else empty.
        Returns the reply, or null when a failure was shown. */
    std::unique_ptr<juce::XmlElement> requestBin (juce::String& errorText, const juce::String& key,
                                                  const juce::String& value) const;

    /** The service's answer to a log-on. */
    struct loginReply
    {
        juce::String token; /**< As it came; empty when the log-on was refused, and when it is above 16 KB. */
        juce::String message; /**< What to show then. */
    };

    /** Logs on; nothing when a failure was shown. */
    std::optional<loginReply> requestLogin (const juce::String& address, const juce::String& password) const;

    /** The service's answer to the creation of an account. */
    struct creationReply
    {
        juce::String status;  /**< "success" when the account is there now. */
        juce::String message; /**< To be shown in any case. */
    };

    /** Creates an account; nothing when a failure was shown. */
    std::optional<creationReply> requestCreation (const juce::String& address,
                                                  const juce::String& password) const;

private:
    juce::URL pageAt (const char* path, const juce::String& postData) const;
    void reportMalformed (const std::string& text, juce::int64 milliseconds) const;

    const juce::String storeOrigin, installationFolder;
    const juce::String &sessionToken, &enduser;
    const waiting wait;

    JUCE_DECLARE_NON_COPYABLE (storeService)
};
