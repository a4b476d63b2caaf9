#pragma once

#include <juce_core/juce_core.h>
#include <memory>
#include <optional>

/** Conversations with the store's web service. Each blocks until the whole reply is there or the connection has
    failed, and shows its own failures in message boxes: afterwards a caller checks that it still exists. Message
    thread. No message, file name or title ever holds a password or a token. */

/** Posts a form-encoded body to a path of the service, such as "/api/auth.cfm", with the session token unless
    that is empty. Returns the root of the XML reply, or null when a failure was shown. A reply that is not XML is
    kept in the installation folder. */
std::unique_ptr<juce::XmlElement> postToServer (const juce::String& path, const juce::String& postData,
                                                const juce::String& token);

/** Asks for an action on the account `enduser`, such as key "list" with value "mediareview"; the pair is sent when
    neither is empty. errorText becomes the service's message when the action failed, else empty. Returns the
    reply, or null when a failure was shown. */
std::unique_ptr<juce::XmlElement> requestBin (juce::String& errorText, const juce::String& key,
                                              const juce::String& value, const juce::String& enduser,
                                              const juce::String& token);

/** The service's answer to a log-on. */
struct loginReply
{
    juce::String token;   /**< As it came; empty when the log-on was refused. */
    juce::String message; /**< What to show then. */
};

/** Logs on; nothing when a failure was shown. */
std::optional<loginReply> requestLogin (const juce::String& address, const juce::String& password);

/** The service's answer to the creation of an account. */
struct creationReply
{
    juce::String status;  /**< "success" when the account is there now. */
    juce::String message; /**< To be shown in any case. */
};

/** Creates an account; nothing when a failure was shown. */
std::optional<creationReply> requestCreation (const juce::String& address, const juce::String& password);
