#include "assets.h"
#include "store/store_intro.h"
#include "tests/support/person.h"
#include "tests/support/pictures.h"
#include "tests/support/recordingListener.h"
#include "ui/lookAndFeelKlangora.h"
#include "ui/messageBox.h"
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

/** The picture of a list of so many outcomes that has been scrolled back by these numbers of lines. */
static juce::MemoryBlock pictureOf (int outcomes, std::initializer_list<int> scrolls = {})
{
    const juce::Rectangle<int> area (0, 0, 200, 3 * outcomeList::lineHeight + 12);
    juce::Image image (juce::Image::ARGB, area.getWidth(), area.getHeight(), true);
    juce::Graphics g (image);
    outcomeList list;
    list.add ("An item of an earlier run", "current", palette::text);
    list.clear();

    for (int i = 0; i < outcomes; ++i)
        list.add ("Item " + juce::String (i), "current", palette::text);

    for (auto lines : scrolls)
        list.scrollBack (lines, area);

    list.paint (g, area, "nothing");
    return encoded (image);
}

TEST_CASE ("the list of outcomes shows the three newest ones, and scrolls back to the first")
{
    CHECK ((pictureOf (6) != pictureOf (5)));
    CHECK ((pictureOf (6, { 1 }) == pictureOf (5)));
    CHECK ((pictureOf (6, { 1000 }) == pictureOf (3)));
    CHECK ((pictureOf (6, { 1000, -1000 }) == pictureOf (6)));
    CHECK ((pictureOf (1) != pictureOf (0)));
    CHECK ((pictureOf (3, { 1000 }) == pictureOf (3)));
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

TEST_CASE ("a banner is drawn for the pixels of a display of twice the scale")
{
    recordingListener listener;
    store_intro page (listener);
    const auto banner =
        juce::ImageFileFormat::loadFrom (assets::bannerwelcome200_png, assets::bannerwelcome200_pngSize);
    const auto picture = page.createComponentSnapshot ({ 700, 44 }, true, 2.0f);
    auto worst = 0;

    for (int y = 2; y < picture.getHeight() - 4; ++y)
        for (int x = 2; x < picture.getWidth() - 2; ++x)
            worst = juce::jmax (
                worst, std::abs (picture.getPixelAt (x, y).getRed() - banner.getPixelAt (x, y).getRed()));

    CHECK (worst < 4);
}

TEST_CASE ("a tooltip keeps clear of the mouse, inside its area, and says nothing of <BETA>")
{
    lookAndFeelKlangora look;
    const juce::Rectangle<int> area (1000, 800);
    const auto at = [&] (int x, int y, const char* text = "A tip") {
        return look.getTooltipBounds (text, { x, y }, area);
    };

    const auto size = at (0, 0).withZeroOrigin();
    CHECK (at (0, 0, "A<BETA> <beta>tip<Beta>").withZeroOrigin() == size);
    CHECK (at (500, 400) == size + juce::Point<int> (524, 406));
    CHECK (at (501, 401) == size + juce::Point<int> (501 - size.getWidth() - 12, 401 - size.getHeight() - 6));
    CHECK (area.contains (at (2000, -50)));
}

TEST_CASE ("a message box fits the screen with its buttons; all its text can be scrolled to and copied")
{
    const auto screen = juce::Desktop::getInstance().getDisplays().getPrimaryDisplay()->userArea;
    const auto times = juce::String::repeatedString;

    for (auto& message : { juce::String ("Short."), "Downloaded:\n" + times ("Amp module\n", 102),
                           "Failed:\n/" + times ("NoBlanks/", 35), times ("refused ", 50000) })
    {
        messageBox box ("Klangora 4", message, { "Quit", "Go back" }, juce::MessageBoxIconType::InfoIcon,
                        nullptr);
        const auto shown = box.getText();
        CAPTURE (message.substring (0, 20));
        CHECK (shown.length() == juce::jmin (message.length(), messageBox::longestText));
        CHECK (shown.endsWithChar (0x2026) == (message.length() > messageBox::longestText));
        CHECK (screen.contains (box.getBounds()));

        box.keyPressed (juce::KeyPress ('c', juce::ModifierKeys::commandModifier, 0));
        CHECK (juce::SystemClipboard::getTextFromClipboard() == "Klangora 4\n\n" + shown);
        const auto picture = [&] { return encoded (box.createComponentSnapshot (box.getLocalBounds())); };
        const auto atTop = picture();
        box.keyPressed (juce::KeyPress (juce::KeyPress::endKey));
        const auto& text = *findAll<juce::TextEditor> (box).front();
        CHECK ((atTop == picture()) == (text.getHeight() < screen.getHeight() / 2));

        for (auto key : { juce::KeyPress::homeKey, juce::KeyPress::pageDownKey }) // which skips no line
            box.keyPressed (juce::KeyPress (key));

        CHECK (findAll<juce::Viewport> (box).front()->getViewPositionY() < text.getHeight());

        for (auto* button : findAll<juce::TextButton> (box))
        {
            CHECK (
                button->isRegisteredForShortcut ({ (int) button->getButtonText().toLowerCase()[0], {}, 0 }));
            CHECK (text.getBottom() < button->getY());
            CHECK (button->getBottom() < box.getHeight());
        }
    }
}

TEST_CASE ("the lines of a message box are of much the same length, and can be selected and copied")
{
    const auto question =
        "This will close your connections with the Dorvik Rigmart store. Do you want to quit?";
    messageBox box ("Klangora 4", question, { "Quit", "Go back" }, juce::MessageBoxIconType::QuestionIcon,
                    nullptr);
    auto& text = *findAll<juce::TextEditor> (box).front();
    const auto lastLine = text.getTextBounds ({ text.getTotalNumChars() - 2, text.getTotalNumChars() });
    CHECK (lastLine.getBounds().getRight() > text.getWidth() / 2);

    // What is selected is copied alone.
    for (auto key : { 'a', 'c' })
        box.keyPressed (juce::KeyPress (key, juce::ModifierKeys::commandModifier, 0));

    CHECK (juce::SystemClipboard::getTextFromClipboard() == question);
    CHECK_FALSE (text.getWantsKeyboardFocus()); // where Return would not press a button

    messageBox three ({}, {}, { "One", "Two", "Three" }, juce::MessageBoxIconType::NoIcon, nullptr);
    CHECK (findAll<juce::TextButton> (three).size() == 3);
}
