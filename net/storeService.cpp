#include "net/storeService.h"
#include "base/boundedReading.h"
#include "base/safeFileWriter.h"
#include "base/validText.h"
#include "net/escapeText.h"
#include "net/replyXml.h"
#include "net/webStream.h"
#include "store/showAttention.h"

/** What a message says when the service gave no reason. */
static constexpr const char* unspecified = "Unspecified error.";

storeService::storeService (const juce::String& origin, const juce::String& folder,
                            const juce::String& tokenToSend, const juce::String& addressToName,
                            waiting howToWait)
    : storeOrigin (origin),
      installationFolder (folder),
      sessionToken (tokenToSend),
      enduser (addressToName),
      wait (std::move (howToWait))
{}

juce::URL storeService::pageAt (const char* path, const juce::String& postData) const
{
    return juce::URL::createWithoutParsing (storeOrigin + path).withPOSTData (postData);
}

/** The reply as text, without a byte-order mark; empty when there is none. */
static juce::String fetchText (const webRequest& request)
{
    const auto reply = openWebStream (request);

    if (reply.stream == nullptr)
        return {};

    const auto bytes = readAtMost (*reply.stream);
    const auto text = validText (bytes.getData(), bytes.getSize());
    return text.startsWithChar (0xfeff) ? text.substring (1) : text;
}

/** Keeps a reply that is not XML, for the people who look after the service, and tells the user. */
void storeService::reportMalformed (const juce::String& text, juce::int64 milliseconds) const
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

std::unique_ptr<juce::XmlElement> storeService::postToServer (const juce::URL& url, bool usePost,
                                                              const juce::String& token) const
{
    jassert (usePost); // the service knows no other way
    juce::ignoreUnused (usePost);

    webRequest request;
    request.address = url.toString (false);
    request.postData = url.getPostData();
    request.token = token;

    juce::String text;
    const auto start = juce::Time::currentTimeMillis();
    wait ([&] { text = fetchText (request); });
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

std::unique_ptr<juce::XmlElement> storeService::requestBin (juce::String& errorText, const juce::String& key,
                                                            const juce::String& value) const
{
    errorText.clear();
    auto fields = "enduser=" + enduser;

    if (key.isNotEmpty() && value.isNotEmpty())
        fields << "&" << key << "=" << value;

    // This page of the service takes all its fields as one escaped text, separators and all.
    auto reply = postToServer (pageAt ("/api/bin.cfm", escapeFormText (fields)), true, sessionToken);

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

std::optional<storeService::loginReply> storeService::requestLogin (const juce::String& address,
                                                                    const juce::String& password) const
{
    const auto reply =
        postToServer (pageAt ("/api/auth.cfm", credentials ("emailaddr", address, password)), true, {});

    if (reply == nullptr)
        return {};

    return loginReply{ childText (*reply, "sessiontoken", {}), childText (*reply, "message", unspecified) };
}

std::optional<storeService::creationReply> storeService::requestCreation (const juce::String& address,
                                                                          const juce::String& password) const
{
    const auto reply =
        postToServer (pageAt ("/api/register.cfm", credentials ("email", address, password)), true, {});

    if (reply == nullptr)
        return {};

    return creationReply{ childText (*reply, "status", unspecified),
                          childText (*reply, "message", unspecified) };
}
