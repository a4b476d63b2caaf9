#include "content/catalogue.h"
#include "tests/support/dataTable.h"
#include <catch2/catch.hpp>

TEST_CASE ("a catalogue reply becomes its complete items in their order")
{
    checkTable ("catalogue", [] (auto& columns) {
        const auto reply = juce::parseXML ("<reply>" + juce::String (columns[0]) + "</reply>");
        REQUIRE (reply != nullptr);
        juce::Array<DownloadItem> items;
        readCatalogue (*reply, "/inst", items);
        juce::StringArray found;

        for (auto& item : items)
            found.add (item.url + ", " + item.target + ", " + item.name + ", "
                       + juce::String (item.buildnumber) + ", " + item.builddaterequirement);

        return found.joinIntoString ("; ").toStdString();
    });
}
