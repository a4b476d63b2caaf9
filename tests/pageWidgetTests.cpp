#include "assets.h"
#include "store/store_intro.h"
#include "tests/support/recordingListener.h"
#include "ui/lookAndFeelKlangora.h"
#include "ui/outcomeList.h"
#include "ui/palette.h"
#include "ui/statusLabel.h"
#include <catch2/catch.hpp>
#include <cstdlib>

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

static const float scales[] = { 1.0f, 1.25f, 1.5f, 2.0f };

TEST_CASE ("the initial and the rest of its word stand on one line, without the full stop, at every scale")
{
    lookAndFeelKlangora::install();
    recordingListener listener;
    store_intro page (listener);
    auto& initial = *page.getChildComponent (2);

    // Letters with flat feet: round ones reach a little below their line.
    dynamic_cast<juce::Label&> (*page.getChildComponent (4))
        .setText (".      HHHHHH", juce::dontSendNotification);

    for (auto scale : scales)
    {
        INFO ("scale " << scale);
        const auto headline = juce::Rectangle<int> (43, 134, 450, 60);
        const auto pixels = [&] (int units) { return juce::roundToInt ((float) units * scale); };
        const auto takePicture = [&] { return page.createComponentSnapshot (headline, true, scale); };
        const auto isInk = [] (juce::Colour c) { return c.getBrightness() * c.getFloatAlpha() > 0.6f; };
        const auto lowestInk = [&] (const juce::Image& picture, int left, int right) {
            for (auto y = picture.getHeight(); --y >= 0;)
                for (auto x = left; x < right; ++x)
                    if (isInk (picture.getPixelAt (x, y)))
                        return y;

            return -1;
        };

        initial.setVisible (true);
        const auto picture = takePicture();
        initial.setVisible (false);
        const auto rest = takePicture();
        auto wordLeft = 0;

        while (lowestInk (rest, wordLeft, wordLeft + 1) < 0)
            REQUIRE (++wordLeft < rest.getWidth());

        CHECK (wordLeft > pixels (30)); // a full stop would come first
        CHECK (lowestInk (picture, 0, wordLeft) == lowestInk (rest, wordLeft, rest.getWidth()));
        CHECK (isInk (picture.getPixelAt (pixels (1) + 1, pixels (5) + 1))); // from the left edge on
    }
}

TEST_CASE ("a banner is drawn for the pixels of the display")
{
    recordingListener listener;
    store_intro page (listener);
    const std::pair<float, juce::Image> drawn[] = {
        { 1.0f, juce::ImageCache::getFromMemory (assets::bannerwelcome_png, assets::bannerwelcome_pngSize) },
        { 1.5f,
          juce::ImageCache::getFromMemory (assets::bannerwelcome150_png, assets::bannerwelcome150_pngSize) },
        { 2.0f,
          juce::ImageCache::getFromMemory (assets::bannerwelcome200_png, assets::bannerwelcome200_pngSize) },
    };

    for (auto& [scale, banner] : drawn)
    {
        const auto picture = page.createComponentSnapshot ({ 700, 44 }, true, scale);
        auto worst = 0;

        for (int y = 2; y < picture.getHeight() - 4; ++y)
            for (int x = 2; x < picture.getWidth() - 2; ++x)
                worst = juce::jmax (
                    worst, std::abs (picture.getPixelAt (x, y).getRed() - banner.getPixelAt (x, y).getRed()));

        INFO ("scale " << scale);
        CHECK (worst < 4);
    }
}
