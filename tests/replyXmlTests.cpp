#include "net/replyXml.h"
#include <catch2/catch.hpp>

static const auto times = juce::String::repeatedString;

TEST_CASE ("a reply is XML as far as the framework's parser takes it, and nothing that it would not survive")
{
    for (auto* text :
         { " \n<?xml version=\"1.0\"?>\n<!-- x --><!DOCTYPE a SYSTEM \"a.dtd\">\n<a b='c'>d</a>\n",
           "<!DOCTYPE html><html><body>&nbsp;&copy;&#160;&#xA0;</body></html>",
           "<a b=\"&lt;&quot;'>\" c='\"'><!-- & <b> <!ENTITY --><![CDATA[ & <b> <!DOCTYPE [ ]]><?p & "
           "<b>?></a>",
           "<a><b/>text<c>x</c ></a>", "<a <!-- x --> b = \"c\" />",
           // wrong, but taken
           "<a><b></a></a>", "<a>x</a> trailing <b> & text", "<a", "<a b=", "<a b=c>d</a>",
           "<a b='x' b='y'/>", "< a/>", "<a>&unknown;</a>", "<a>x</a" })
    {
        INFO (text);
        CHECK (parseReply (text) != nullptr);
    }

    for (auto* text :
         { "", " \r\n", "{\"status\":\"success\"}", "<html><body><hr></body></html>", "<a>text", "<a b='c",
           "<!-- <a/>", "<?xml version=\"1.0\" <a/>", "<!DOCTYPE a", "<a><![CDATA[x]></a>", "<a b>c</a>",
           // what the parser would not survive, or would read wrongly
           "<!DOCTYPE x [<!ENTITY a \"&xa;\">]><x>&a;</x>", "<!DOCTYPE x SYSTEM \"y\" [ ]><x/>",
           "<?xml version='1.0'?><!-- [ --><!DOCTYPE x <!ENTITY a 'b'>><x>&a;</x>", "<a>&#x", "<a>&#x</a>",
           "<a b='&#x'>&#65", "<a>Fish & chips; fried</a>", "<a b='?c&d' e='f;'/>", "<a><?p?>text</a>",
           "<a> <!-- x --> <?p?> text</a>" })
    {
        INFO (text);
        CHECK (parseReply (text) == nullptr);
    }
}

TEST_CASE ("elements nest 200 deep and no deeper, whatever hides them")
{
    CHECK (parseReply (times ("<a>", 200) + times ("</a>", 200)) != nullptr);
    CHECK (parseReply (times ("<a>", 201) + times ("</a>", 201)) == nullptr);
    CHECK (parseReply (times ("<a>x<!-- </a> --><![CDATA[</a>]]><?p </a>?><b/><b>x</b>", 201)
                       + times ("</a>", 201))
           == nullptr);
    CHECK (parseReply (times ("<a>&x</a>;", 50000)) == nullptr);
    CHECK (parseReply (times ("<a>", 1000000)) == nullptr);

    CHECK (parseReply ("<a>" + times ("<b>x</b><b/><b c='<d>'><!-- <d> --></b>", 100000) + "</a>")
           != nullptr);
}
