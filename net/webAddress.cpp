#include "net/webAddress.h"
#include "net/escapeText.h"

/** Index of the first character after scheme, host and port. */
static int startOfPath (const juce::String& address)
{
    const auto start = address.indexOfAnyOf ("/?#", address.indexOf ("://") + 3);
    return start < 0 ? address.length() : start;
}

juce::String originOf (const juce::String& address)
{
    const auto isHttp = address.startsWithIgnoreCase ("http://");

    if (! isHttp && ! address.startsWithIgnoreCase ("https://"))
        return {};

    const auto origin = address.substring (0, startOfPath (address)).toLowerCase();
    const juce::String usualPort (isHttp ? ":80" : ":443");
    return origin.endsWith (usualPort) ? origin.dropLastCharacters (usualPort.length()) : origin;
}

juce::String sendableAddress (const juce::String& address)
{
    const auto path = startOfPath (address);
    return address.substring (0, path)
           + escapeAddressText (address.substring (path).upToFirstOccurrenceOf ("#", false, false));
}

/** A path without its "." and ".." parts, what follows it untouched. */
static juce::String withoutDots (const juce::String& pathAndQuery)
{
    const auto path = pathAndQuery.upToFirstOccurrenceOf ("?", false, false);
    juce::StringArray parts;

    for (auto& part : juce::StringArray::fromTokens (path.substring (1), "/", {}))
    {
        if (part == "..")
            parts.remove (parts.size() - 1);
        else if (part != ".")
            parts.add (part);
    }

    if (path.endsWith ("/.") || path.endsWith ("/.."))
        parts.add ({}); // a folder stays one

    return "/" + parts.joinIntoString ("/") + pathAndQuery.substring (path.length());
}

juce::String resolveAddress (const juce::String& base, const juce::String& reference)
{
    auto target = reference.trim().upToFirstOccurrenceOf ("#", false, false);
    const auto scheme = target.upToFirstOccurrenceOf (":", false, false);

    if (scheme.length() < target.length() && ! scheme.containsAnyOf ("/?"))
        return target;

    if (target.startsWith ("//"))
        return base.upToFirstOccurrenceOf ("//", false, false) + target;

    const auto origin = base.substring (0, startOfPath (base));
    const auto pathAndQuery = base.substring (origin.length()).upToFirstOccurrenceOf ("#", false, false);
    const auto path = pathAndQuery.upToFirstOccurrenceOf ("?", false, false);

    if (target.isEmpty())
        return origin + pathAndQuery;

    if (target.startsWithChar ('?'))
        return origin + path + target;

    if (target.startsWithChar ('/'))
        return origin + withoutDots (target);

    const auto folder = path.isEmpty() ? juce::String ("/") : path.upToLastOccurrenceOf ("/", true, false);
    return origin + withoutDots (folder + target);
}
