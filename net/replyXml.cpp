#include "net/replyXml.h"
#include <cstring>

static constexpr int maximumDepth = 200;

namespace
{
/** Reads a text the way the framework's parser does, and looks for what the parser does not survive: it recurses
    for each nested element, expands entities without a limit, takes a bare ampersand and all up to the next
    semicolon, wherever that is, for a reference, and circles for ever on a processing instruction before text
    inside an element. It makes nothing of the text, so that a text that ends early is left to the parser. */
class xmlGuard
{
public:
    explicit xmlGuard (const juce::String& text)
        : next (text.getCharPointer())
    {}

    bool passes()
    {
        skipBlanks();

        if (startsWith ("<?xml"))
        {
            skipFrom (0, "?>");
            skipBlanks();
        }

        if (startsWith ("<!DOCTYPE") && ! skipPlainDocumentType())
            return false;

        skipBlanks();

        if (*next != '<')
            return true;

        if (! readTag())
            return false;

        while (depth > 0 && ! next.isEmpty())
            if (! readContent())
                return false;

        return true;
    }

private:
    bool startsWith (const char* token) const
    {
        return juce::CharacterFunctions::compareUpTo (next, juce::CharPointer_ASCII (token),
                                                      (int) std::strlen (token))
               == 0;
    }

    /** Over what begins here with `opening` characters, up to and with the token that ends it. */
    void skipFrom (int opening, const char* token)
    {
        next += opening;
        next = juce::CharacterFunctions::find (next, juce::CharPointer_ASCII (token));

        for (; *token != 0 && ! next.isEmpty(); ++token)
            ++next;
    }

    /** Blanks, comments and processing instructions. */
    void skipBlanks()
    {
        for (;;)
        {
            next.incrementToEndOfWhitespace();

            if (*next != '<')
                return;

            if (startsWith ("<!--"))
                skipFrom (4, "-->");
            else if (startsWith ("<?"))
                skipFrom (2, "?>");
            else
                return;
        }
    }

    bool skipPlainDocumentType()
    {
        for (next += 9; ! next.isEmpty(); ++next)
        {
            if (*next == '[' || *next == '<')
                return false;

            if (*next == '>')
                return ++next, true;
        }

        return true;
    }

    static bool isNameCharacter (juce::juce_wchar c)
    {
        return (c >= 'a' && c <= 'z') || juce::CharacterFunctions::isLetterOrDigit (c) || c == '_' || c == '-'
               || c == ':' || c == '.';
    }

    bool skipName()
    {
        const auto start = next;

        while (isNameCharacter (*next))
            ++next;

        return next != start;
    }

    /** False for an ampersand that starts no reference. */
    bool skipReference()
    {
        ++next;

        if (*next == '#')
            ++next;

        return skipName() && next.getAndAdvance() == ';';
    }

    /** The value of an attribute with its quotes. */
    bool skipValue()
    {
        const auto quote = next.getAndAdvance();

        for (auto character = *next; character != quote; character = *next)
        {
            if (character == 0)
                return true;

            if (character != '&')
                ++next;
            else if (! skipReference())
                return false;
        }

        return ++next, true;
    }

    /** A start tag, or one that is both start and end. */
    bool readTag()
    {
        ++next;

        if (! skipName())
        {
            skipBlanks();

            if (! skipName())
                return next.isEmpty();
        }

        for (;;)
        {
            skipBlanks();

            if (startsWith ("/>"))
                return next += 2, true;

            if (*next == '>')
                return ++next, ++depth <= maximumDepth;

            if (! skipName())
                return next.isEmpty();

            skipBlanks();

            if (*next != '=')
                return next.isEmpty();

            ++next;
            skipBlanks();

            if (*next != '"' && *next != '\'')
                return true; // the parser ends the element here and takes the rest for text

            if (! skipValue())
                return false;
        }
    }

    /** Text, as far as it goes. False where the parser would never come past a processing instruction. */
    bool skipText()
    {
        const auto start = next;

        while (! next.isEmpty())
        {
            if (startsWith ("<!--"))
                skipFrom (4, "-->");
            else if (*next == '<')
                return next != start;
            else if (*next != '&')
                ++next;
            else if (! skipReference())
                return false;
        }

        return true;
    }

    /** What comes next inside an element: text, a CDATA section or a tag. */
    bool readContent()
    {
        const auto start = next;
        skipBlanks();

        if (startsWith ("</"))
        {
            skipFrom (2, ">");
            --depth;
        }
        else if (startsWith ("<![CDATA["))
        {
            skipFrom (9, "]]>");
        }
        else if (*next == '<')
        {
            return readTag();
        }
        else
        {
            next = start; // the blanks belong to the text
            return skipText();
        }

        return true;
    }

    juce::String::CharPointerType next;
    int depth = 0;
};
}

std::unique_ptr<juce::XmlElement> parseReply (const juce::String& text)
{
    if (! xmlGuard (text).passes())
        return {};

    return juce::XmlDocument::parse (text);
}
