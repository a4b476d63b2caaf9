#include "assets.h"
#include "store/store_intro.h"
#include "tests/support/person.h"
#include "tests/support/pictures.h"
#include "tests/support/recordingListener.h"
#include "ui/outcomeList.h"
#include "ui/palette.h"
#include "ui/statusLabel.h"
#include <catch2/catch.hpp>

TEST_CASE ("a name that is too long for the status line leaves room for the percentage")
{
    const auto longName = juce::String::repeatedString ("Impulse Responses ", 30);
    const auto pictureAt = [&] (const juce::String& percentage, juce::Rectangle<int> area) {
        statusLabel label;
        label.setBounds (0, 0, 530, 24);
        label.setStatus ("File 1/2 - ", longName, " " + percentage);
        CHECK (label.getText() == "File 1/2 - " + longName + " " + percentage);
        return encoded (label.createComponentSnapshot (area));
    };

    const juce::Rectangle<int> left (0, 0, 480, 24), right (480, 0, 50, 24);
    CHECK ((pictureAt ("45%", left) == pictureAt ("46%", left)));
    CHECK ((pictureAt ("45%", right) != pictureAt ("46%", right)));
}

static outcomeList listOf (int count)
{
    outcomeList list;

    for (int i = 0; i < count; ++i)
        list.add ("Item " + juce::String (i), "current", palette::text);

    return list;
}

TEST_CASE ("the list of outcomes shows the newest ones, and scrolls back to the first")
{
    constexpr int rows = 3;
    const juce::Rectangle<int> area (0, 0, 200, rows * outcomeList::lineHeight + 12);
    const auto picture = [&] (const outcomeList& list) {
        juce::Image image (juce::Image::ARGB, area.getWidth(), area.getHeight(), true);
        juce::Graphics g (image);
        list.paint (g, area, "nothing");
        return encoded (image);
    };

    auto list = listOf (6);
    CHECK ((picture (list) != picture (listOf (5))));
    list.scrollBack (1, area);
    CHECK ((picture (list) == picture (listOf (5))));
    list.scrollBack (1000, area);
    CHECK ((picture (list) == picture (listOf (rows))));
    list.scrollBack (-1000, area);
    CHECK ((picture (list) == picture (listOf (6))));
    list.clear();
    CHECK ((picture (list) == picture (listOf (0))));
}

/** Where something bright is in a picture. */
static juce::Rectangle<int> inkIn (const juce::Image& picture)
{
    juce::Rectangle<int> ink;

    for (int y = 0; y < picture.getHeight(); ++y)
        for (int x = 0; x < picture.getWidth(); ++x)
            if (const auto c = picture.getPixelAt (x, y); c.getBrightness() * c.getFloatAlpha() > 0.6f)
                ink = ink.getUnion ({ x, y, 1, 1 });

    return ink;
}

TEST_CASE ("the initial and the rest of its word stand on one line, without the full stop, at every scale")
{
    recordingListener listener;
    store_intro page (listener);
    auto& initial = find<juce::Label> (page, "W");
    auto& rest = find<juce::Label> (page, ".      elcome to the Dorvik Rigmart.");

    // Letters with flat feet: round ones reach a little below their line.
    rest.setText (".      HHHHHH", juce::dontSendNotification);

    for (auto scale : { 1.0f, 1.25f, 1.5f, 2.0f })
    {
        const auto inkOf = [&] (juce::Component& shown, juce::Component& hidden) {
            shown.setVisible (true);
            hidden.setVisible (false);
            return inkIn (page.createComponentSnapshot ({ 43, 134, 450, 60 }, true, scale));
        };
        const auto ofInitial = inkOf (initial, rest), ofRest = inkOf (rest, initial);
        CAPTURE (scale, ofInitial.toString(), ofRest.toString());
        CHECK ((float) ofRest.getX() > 30.0f * scale); // a full stop would come first
        CHECK (ofInitial.getBottom() == ofRest.getBottom());
        CHECK (ofInitial.getX() <= juce::roundToInt (scale) + 1); // from the left edge on
    }
}

TEST_CASE ("a banner is drawn for the pixels of the display")
{
    recordingListener listener;
    store_intro page (listener);
    const struct
    {
        float scale;
        const char* file;
        int size;
    } banners[] = {
        { 1.0f, assets::bannerwelcome_png, assets::bannerwelcome_pngSize },
        { 1.5f, assets::bannerwelcome150_png, assets::bannerwelcome150_pngSize },
        { 2.0f, assets::bannerwelcome200_png, assets::bannerwelcome200_pngSize },
    };

    for (auto& row : banners)
    {
        const auto banner = juce::ImageFileFormat::loadFrom (row.file, (size_t) row.size);
        const auto picture = page.createComponentSnapshot ({ 700, 44 }, true, row.scale);
        auto worst = 0;

        for (int y = 2; y < picture.getHeight() - 4; ++y)
            for (int x = 2; x < picture.getWidth() - 2; ++x)
                worst = juce::jmax (
                    worst, std::abs (picture.getPixelAt (x, y).getRed() - banner.getPixelAt (x, y).getRed()));

        CAPTURE (row.scale);
        CHECK (worst < 4);
    }
}
