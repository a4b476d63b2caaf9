#include "tests/support/dataTable.h"
#include <catch2/catch.hpp>
#include <juce_core/juce_core.h>

/** All the text of a document, "none" for what is none. */
static std::string textOfDocument (const std::vector<std::string>& columns)
{
    const auto root = juce::parseXML (juce::String (columns[0]));
    return root != nullptr ? root->getAllSubText().toStdString() : "none";
}

TEST_CASE ("the parser is lenient, and takes nothing that it would not survive")
{
    checkTable ("xmlDocuments", textOfDocument);
}

TEST_CASE ("an attribute's value is read with its references")
{
    const auto root = juce::parseXML ("<a b='c&lt;d&amp;&#65;e'/>");
    REQUIRE (root != nullptr);
    CHECK (root->getStringAttribute ("b") == "c<d&Ae");
}

#if ! JUCE_DEBUG // whose assertions look through the rest of the text at every piece
TEST_CASE ("what would keep a parser for minutes that looks at the rest of the text again and again is read")
{
    checkTable ("xmlLongTexts", textOfDocument);
}
#endif
