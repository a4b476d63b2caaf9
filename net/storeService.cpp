#include "net/storeService.h"
#include "app/installationPaths.h"
#include "content/safeFileWriter.h"
#include "net/boundedReading.h"
#include "net/escapeFormText.h"
#include "net/replyXml.h"
#include "net/storeAddress.h"
#include "net/validText.h"
#include "net/webStream.h"
#include "store/showAttention.h"
#include "ui/busyCursor.h"

/** What a message says when the service gave no reason. */
static constexpr const char* unspecified = "Unspecified error.";

/** The reply as text, without a byte-order mark; empty when there is none. */
static juce::String fetchText (const webRequest& request)
{
    const busyCursor busy;
    const auto reply = openWebStream (request);

    if (reply.stream == nullptr)
        return {};

    const auto bytes = readAtMost (*reply.stream);
    const auto text = validText (bytes.getData(), bytes.getSize());
    return text.startsWithChar (0xfeff) ? text.substring (1) : text;
}

/** Keeps a reply that is not XML, for the people who look after the service, and tells the user. */
static void reportMalformed (const juce::String& text, juce::int64 milliseconds)
{
    const auto name = "rigmartreturn (" + juce::String (milliseconds) + "ms).txt";
    auto path = name;

    if (juce::File::isAbsolutePath (installationFolder))
    {
        const auto file = juce::File (installationFolder).getChildFile (name);
        path = file.getFullPathName();

        if (file.getParentDirectory().isDirectory())
        {
            juce::MemoryOutputStream bytes;
            bytes.writeText (text, false, false, "\r\n");
            safeFileWriter writer (file);
            writer.write (bytes.getData(), bytes.getDataSize());
            writer.commit();
        }
    }

    showAttention (
        "Malformed data returned from web server. Should be XML, but was " + juce::String (text.length())
        + " bytes of text of a different type. The erroneous return has been saved as a file: " + path);
}

std::unique_ptr<juce::XmlElement> postToServer (const juce::String& path, const juce::String& postData,
                                                const juce::String& token)
{
    webRequest request;
    request.address = storeAddress() + path;
    request.postData = postData;
    request.token = token;

    const auto start = juce::Time::currentTimeMillis();
    const auto text = fetchText (request);
    const auto duration = juce::Time::currentTimeMillis() - start;

    if (text.isEmpty())
    {
        showAttention (
            "No data returned from web server. Klangora needs an Internet connection to complete this "
            "request.");
        return {};
    }

    auto reply = parseReply (text);

    if (reply == nullptr)
        reportMalformed (text, duration);

    return reply;
}

std::unique_ptr<juce::XmlElement> requestBin (juce::String& errorText, const juce::String& key,
                                              const juce::String& value, const juce::String& enduser,
                                              const juce::String& token)
{
    errorText.clear();
    auto fields = "enduser=" + enduser;

    if (key.isNotEmpty() && value.isNotEmpty())
        fields << "&" << key << "=" << value;

    // This page of the service takes all its fields as one escaped text, separators and all.
    auto reply = postToServer ("/api/bin.cfm", escapeFormText (fields), token);

    if (reply != nullptr)
    {
        errorText = reply->getStringAttribute ("error");

        if (errorText.isEmpty() && reply->getStringAttribute ("status") == "failure")
            errorText = reply->getStringAttribute ("message");
    }

    return reply;
}

/** Text of the first child element of exactly this name; `absent` when there is none. */
static juce::String childText (const juce::XmlElement& reply, const char* name, const juce::String& absent)
{
    for (auto* child : reply.getChildIterator())
        if (child->getTagName() == name)
            return child->getAllSubText();

    return absent;
}

static juce::String credentials (const juce::String& addressField, const juce::String& address,
                                 const juce::String& password)
{
    return addressField + "=" + escapeFormText (address) + "&password=" + escapeFormText (password);
}

std::optional<loginReply> requestLogin (const juce::String& address, const juce::String& password)
{
    const auto reply = postToServer ("/api/auth.cfm", credentials ("emailaddr", address, password), {});

    if (reply == nullptr)
        return {};

    return loginReply{ childText (*reply, "sessiontoken", {}), childText (*reply, "message", unspecified) };
}

std::optional<creationReply> requestCreation (const juce::String& address, const juce::String& password)
{
    const auto reply = postToServer ("/api/register.cfm", credentials ("email", address, password), {});

    if (reply == nullptr)
        return {};

    return creationReply{ childText (*reply, "status", unspecified),
                          childText (*reply, "message", unspecified) };
}
