#include "content/targetPath.h"
#include "tests/support/dataTable.h"
#include <catch2/catch.hpp>

TEST_CASE ("only a path that stays below its folder is a target, with slashes between its parts")
{
    const auto folder = juce::File::getSpecialLocation (juce::File::tempDirectory).getFullPathName() + "/";

    checkTable ("targetPath", [&] (auto& columns) {
        const auto path = targetPath (folder + columns[0], folder.dropLastCharacters (1));
        return path ? path->fromFirstOccurrenceOf (folder, false, false).toStdString() : "refused";
    });
}

TEST_CASE ("a target outside its folder, or below no absolute one, is refused")
{
    CHECK_FALSE (targetPath ("/inst/a", "/other").has_value());
    CHECK_FALSE (targetPath ("/installed/a", "/inst").has_value());
    CHECK_FALSE (targetPath ("inst/a", "inst").has_value());
    CHECK_FALSE (targetPath ("/a", "").has_value());
}
