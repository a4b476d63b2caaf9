#include "ui/lookAndFeelKlangora.h"
#include "ui/outcomeList.h"
#include "ui/palette.h"
#include "ui/statusLabel.h"
#include <catch2/catch.hpp>

/** Whether two pictures of the same size show the same within an area. */
static bool showTheSame (const juce::Image& a, const juce::Image& b, juce::Rectangle<int> area)
{
    for (int y = area.getY(); y < area.getBottom(); ++y)
        for (int x = area.getX(); x < area.getRight(); ++x)
            if (a.getPixelAt (x, y) != b.getPixelAt (x, y))
                return false;

    return true;
}

TEST_CASE ("a name that is too long for the status line leaves room for the percentage")
{
    lookAndFeelKlangora::install();
    const auto longName = juce::String::repeatedString ("Impulse Responses ", 30);
    const auto pictureAt = [&] (const juce::String& percentage) {
        statusLabel label;
        label.setBounds (0, 0, 530, 24);
        label.setStatus ("File 1/2 - ", longName, " " + percentage);
        CHECK (label.getText() == "File 1/2 - " + longName + " " + percentage);
        return label.createComponentSnapshot (label.getLocalBounds());
    };

    const auto at45 = pictureAt ("45%"), at46 = pictureAt ("46%");
    CHECK (showTheSame (at45, at46, { 0, 0, 480, 24 }));
    CHECK_FALSE (showTheSame (at45, at46, { 480, 0, 50, 24 }));
}

TEST_CASE ("the list of outcomes shows the newest ones, and scrolls back to the first")
{
    constexpr int rows = 3;
    const juce::Rectangle<int> area (0, 0, 200, rows * outcomeList::lineHeight + 12);
    const auto listOf = [] (int count) {
        outcomeList list;

        for (int i = 0; i < count; ++i)
            list.add ("Item " + juce::String (i), "current", palette::text);

        return list;
    };
    const auto picture = [&] (const outcomeList& list) {
        juce::Image image (juce::Image::ARGB, area.getWidth(), area.getHeight(), true);
        juce::Graphics g (image);
        list.paint (g, area, "nothing");
        return image;
    };
    const auto isSame = [&] (const outcomeList& a, const outcomeList& b) {
        return showTheSame (picture (a), picture (b), area);
    };

    auto list = listOf (6);
    CHECK_FALSE (isSame (list, listOf (5)));
    list.scrollBack (1, area);
    CHECK (isSame (list, listOf (5)));
    list.scrollBack (1000, area);
    CHECK (isSame (list, listOf (rows)));
    list.scrollBack (-1000, area);
    CHECK (isSame (list, listOf (6)));
    list.clear();
    CHECK (isSame (list, listOf (0)));
}
