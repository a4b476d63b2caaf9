#include "net/storeService.h"
#include "base/boundedReading.h"
#include "base/safeFileWriter.h"
#include "base/validText.h"
#include "net/escapeText.h"
#include "net/webStream.h"
#include "store/showAttention.h"
#include <algorithm>
#include <cstring>

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

/** The whole text of the reply; empty when there is none. */
static std::string fetchText (const webRequest& request)
{
    const readingPatience patience;
    const auto reply = openWebStream (request);

    if (reply.stream == nullptr)
        return {};

    const auto bytes = readAtMost (*reply.stream, maximumReplySize, patience);
    return decodedText (bytes.getData(), bytes.getSize());
}

/** Null for what is not XML. The parser is lenient: tags that do not match, a cut last tag and text after the root
    element pass. */
static std::unique_ptr<juce::XmlElement> parse (const std::string& text)
{
    const auto* start = text.c_str();
    return juce::parseXML (
        { juce::CharPointer_UTF8 (start), juce::CharPointer_UTF8 (start + std::strlen (start)) });
}

static std::string withWindowsLineEnds (const std::string& text)
{
    std::string result;
    result.reserve (text.size() + (size_t) std::count (text.begin(), text.end(), '\n'));

    for (const auto byte : text)
    {
        if (byte == '\n' && (result.empty() || result.back() != '\r'))
            result += '\r';

        result += byte;
    }

    return result;
}

/** Keeps a reply that is not XML, for the people who look after the service, and tells the user. */
void storeService::reportMalformed (const std::string& text, juce::int64 milliseconds) const
{
    const auto name = "rigmartreturn (" + juce::String (milliseconds) + "ms).txt";
    auto path = name;

    if (juce::File::isAbsolutePath (installationFolder))
    {
        const auto file = juce::File (installationFolder).getChildFile (name);
        path = file.getFullPathName();

        if (file.getParentDirectory().isDirectory())
        {
            const auto dump = withWindowsLineEnds (text);
            safeFileWriter writer (file);
            writer.write (dump.data(), dump.size());
            writer.commit();
        }
    }

    const auto characters =
        std::count_if (text.begin(), text.end(), [] (char byte) { return (byte & 0xc0) != 0x80; });
    showAttention ("Malformed data returned from web server. Should be XML, but was "
                   + juce::String ((juce::int64) characters)
                   + " bytes of text of a different type. The erroneous return has been saved as a file: "
                   + path);
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

    std::string text;
    const auto start = juce::Time::getMillisecondCounterHiRes(); // of a clock that is never set
    wait ([&] { text = fetchText (request); });
    const auto duration = (juce::int64) (juce::Time::getMillisecondCounterHiRes() - start);

    if (text.empty())
    {
        showAttention (
            "No data returned from web server. Klangora needs an Internet connection to complete this "
            "request.");
        return {};
    }

    auto reply = parse (text);

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

    const auto token = childText (*reply, "sessiontoken", {});
    const auto isToken = token.getNumBytesAsUTF8() <= maximumTokenSize;
    return loginReply{ isToken ? token : juce::String(), childText (*reply, "message", unspecified) };
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
