#include <catch2/catch.hpp>
#include <juce_core/juce_core.h>

static const auto times = juce::String::repeatedString;

TEST_CASE ("the parser is as lenient as it was, and takes nothing that it would not survive")
{
    for (auto* text :
         { " \n<?xml version=\"1.0\"?>\n<!-- x --><!DOCTYPE a SYSTEM \"a.dtd\">\n<a b='c'>d</a>\n",
           "<!DOCTYPE html><html><body>&nbsp;&copy;&#160;&#xA0;</body></html>",
           "<a b=\"&lt;&quot;'>\" c='\"'><!-- & <b> <!ENTITY --><![CDATA[ & <b> <!DOCTYPE [ ]]><?p & "
           "<b>?></a>",
           "<a><b/>text<c>x</c ></a>", "<a <!-- x --> b = \"c\" />",
           // wrong, but taken
           "<a><b></a></a>", "<a>x</a> trailing <b> & text", "<a", "<a b=", "<a b=c>d</a>",
           "<a b='x' b='y'/>", "< a/>", "<a>&unknown;</a>", "<a>x</a", "<a>Fish & chips; fried</a>",
           "<a b='?c&d' e='f;'/>", "<a b='&'/>", "<a>&<b/>;</a>" })
    {
        INFO (text);
        CHECK (juce::parseXML (text) != nullptr);
    }

    for (auto* text :
         { "", " \r\n", "{\"status\":\"success\"}", "<html><body><hr></body></html>", "<a>text", "<a b='c",
           "<!-- <a/>", "<?xml version=\"1.0\" <a/>", "<!DOCTYPE a", "<a><![CDATA[x]></a>", "<a b>c</a>",
           // what the parser would not survive, or would read wrongly
           "<!DOCTYPE x [<!ENTITY a \"&xa;\">]><x>&a;</x>", "<!DOCTYPE x SYSTEM \"y\" [ ]><x/>",
           "<?xml version='1.0'?><!-- [ --><!DOCTYPE x <!ENTITY a 'b'>><x>&a;</x>", "<a>&#x", "<a>&#x</a>",
           "<a b='&#x'>&#65", "<a>Fish & chips</a>" })
    {
        INFO (text);
        CHECK (juce::parseXML (text) == nullptr);
    }
}

TEST_CASE ("text is read on behind a processing instruction, and from all levels")
{
    const std::pair<const char*, const char*> rows[] = {
        { "<a><?p?>text</a>", "text" },
        { "<a> <!-- x --> <?p?> text</a>", "   text" },
        { "<a>b<?p?>c<?p?> <?q?>d<?p?> </a>", "bc d" },
        { "<a>b<c>d<e/>f</c>g</a>", "bdfg" },
        { "<a b='c&lt;d&amp;&#65;e'>&LT;&#xe4;\r\n&unknown;</a>", "<\xc3\xa4\nunknown" },
    };

    for (auto& [document, text] : rows)
    {
        INFO (document);
        const auto root = juce::parseXML (juce::CharPointer_UTF8 (document));
        REQUIRE (root != nullptr);
        CHECK (root->getAllSubText() == juce::CharPointer_UTF8 (text));
    }

    CHECK (juce::parseXML (rows[4].first)->getStringAttribute ("b") == "c<d&Ae");
}

#if JUCE_DEBUG // whose assertions look through the rest of the text at every piece
static constexpr int share = 100;
#else
static constexpr int share = 1;
#endif

TEST_CASE ("elements nest 200 deep and no deeper, whatever hides them")
{
    CHECK (juce::parseXML (times ("<a>", 200) + times ("</a>", 200)) != nullptr);
    CHECK (juce::parseXML (times ("<a>", 201) + times ("</a>", 201)) == nullptr);
    CHECK (juce::parseXML (times ("<a>x<!-- </a> --><![CDATA[</a>]]><?p </a>?><b/><b>x</b>", 201)
                           + times ("</a>", 201))
           == nullptr);
    CHECK (juce::parseXML (times ("<a>&x</a>;", 50000 / share)) == nullptr);
    CHECK (juce::parseXML (times ("<a>", 1000000 / share)) == nullptr);

    CHECK (juce::parseXML ("<a>" + times ("<b>x</b><b/><b c='<d>'><!-- <d> --></b>", 100000 / share) + "</a>")
           != nullptr);
}

/** Elements, or attributes when there is something between names and values, with different names. */
static juce::String named (int count, const juce::String& before, const juce::String& after)
{
    juce::String text;

    for (int i = 0; i < count; ++i)
        text << before << "n" << i << after;

    return text;
}

TEST_CASE ("a document has 1,000 names and an element 1,000 attributes at most")
{
    CHECK (juce::parseXML ("<n0>" + named (1000, "<", "/>") + "</n0>") != nullptr);
    CHECK (juce::parseXML ("<n0>" + named (1001, "<", "/>") + "&x;</n0>") == nullptr);
    CHECK (juce::parseXML ("<n0" + named (500, " ", "=''") + "/>") != nullptr);
    CHECK (juce::parseXML ("<n0>" + named (500, "<a ", "=''/>") + named (500, "<b n", "=''/>") + "</n0>")
           == nullptr);
    CHECK (juce::parseXML ("<a" + times (" b=''", 1000) + "/>") != nullptr);
    CHECK (juce::parseXML ("<a><b" + times (" b=''", 1001) + "/>&x;</a>") == nullptr);
}

TEST_CASE ("what once cost the square of its length is read")
{
    // Each would keep a parser that looks at the rest of the text again and again for minutes.
    const auto open = times ("<a>", 199);
    CHECK (juce::parseXML ("<a b='" + times ("&lt;x", 200000 / share) + "'/>") != nullptr);
    CHECK (juce::parseXML (open + "</" + times ("x", 800000 / share)) != nullptr);

    for (auto& text :
         { times ("&", 800000 / share), times ("<!--", 200000 / share), times ("<?", 200000 / share),
           "<a" + times (" b='' <!--", 1000) + times (" ", 800000 / share), times ("<a", 200000 / share),
           times ("<![CDATA[", 100000 / share) })
        CHECK (juce::parseXML (open + text) == nullptr);
}
