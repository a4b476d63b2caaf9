#include "app/installationPaths.h"
#include "tests/support/temporaryInstallation.h"
#include "ui/lookAndFeelKlangora.h"
#include "ui/wrapText.h"
#include <catch2/catch.hpp>

/** A picture file. It is told by its bytes, whatever its name says. */
static juce::MemoryBlock encode (const juce::Image& image)
{
    juce::MemoryOutputStream stream;
    REQUIRE (juce::PNGImageFormat().writeImageToStream (image, stream));
    return stream.getMemoryBlock();
}

static const auto skinName = juce::String ("generic_background.jpg");

/** Interface data in a folder of its own, in use while this lives. */
struct interfaceData : temporaryInstallation
{
    interfaceData()
    {
        source.open (folder.getFullPathName());
        guiDataSource = &source;
    }

    ~interfaceData() { guiDataSource = nullptr; }

    jSimpleArchiveDirectory source;
};

static lookAndFeelKlangora& installedLook()
{
    lookAndFeelKlangora::install();
    lookAndFeelKlangora::install(); // nothing more
    return dynamic_cast<lookAndFeelKlangora&> (juce::LookAndFeel::getDefaultLookAndFeel());
}

static juce::Image background (lookAndFeelKlangora& look, const juce::Component& component, int width,
                               int height)
{
    juce::Image image;
    look.renderDialogBackground (image, component, width, height, false);
    return image;
}

static juce::Image snapshot (juce::Component& component)
{
    return component.createComponentSnapshot (component.getLocalBounds());
}

TEST_CASE ("a picture's name may leave out its extension, and a jpg wins over a png")
{
    interfaceData data;
    int width = 20;

    for (auto* name : { "a.jpg", "b.png", "c.png", "c.jpg", "d.jpg.png", "bare" })
        data.write (name, encode ({ juce::Image::RGB, width++, 20, true }));

    const struct
    {
        const char* name;
        int width; // 0: no picture
    } cases[] = { { "a.jpg", 20 }, { "a", 20 },     { "b", 21 },    { "b.png", 21 }, { "b.jpg", 0 },
                  { "c", 23 },     { "c.png", 22 }, { "d.jpg", 0 }, { "bare", 25 },  { "none", 0 } };

    for (auto& c : cases)
    {
        const auto picture = lookAndFeelKlangora::loadPicture (data.source, c.name);
        INFO (c.name);
        CHECK (picture.getWidth() == c.width);
        CHECK ((c.width == 0 || picture.getFormat() == juce::Image::ARGB));
    }
}

TEST_CASE ("without a picture the background is plain and dark, and with one it is loaded once")
{
    const juce::Component component;
    const auto good = encode ({ juce::Image::RGB, 40, 100, true });
    const auto huge = encode ({ juce::Image::RGB, 9000, 2, true });
    const auto checkPlain = [&] (lookAndFeelKlangora& look) {
        CHECK (look.getSkinBackground().isNull());
        CHECK (background (look, component, 30, 20).getPixelAt (7, 7)
               == look.findColour (juce::ResizableWindow::backgroundColourId));
    };

    lookAndFeelKlangora look;
    checkPlain (look); // no source at all
    interfaceData data;

    for (auto& bytes : { huge, juce::MemoryBlock (good.getData(), good.getSize() / 2) })
    {
        data.write (skinName, bytes);
        lookAndFeelKlangora another;
        checkPlain (another);
    }

    data.write (skinName, good);
    CHECK (look.getSkinBackground().getBounds() == juce::Rectangle<int> (40, 100));
    data.write (skinName, huge);
    CHECK (look.getSkinBackground().isValid());
    look.reloadSkinBackground = true;
    checkPlain (look);
}

TEST_CASE ("wrapped text loses nothing and no line is too wide")
{
    const juce::Font font (15.0f);
    const auto path = juce::String::repeatedString ("Folder/", 40);

    for (auto& text :
         { juce::String ("one two three four five"), path, "x " + path + "\ty  z", juce::String() })
    {
        for (auto width : { 1.0f, 60.0f, 200.0f, 10000.0f })
        {
            const auto lines = wrapText (text, font, width);
            CHECK (lines.joinIntoString ({}).removeCharacters (" ") == text.removeCharacters (" \t"));

            for (auto& line : lines)
                CHECK ((line.length() <= 1 || font.getStringWidthFloat (line) <= width));
        }
    }

    CHECK (wrapText ("a\n\nb", font, 100.0f) == juce::StringArray{ "a", "", "b" });
    CHECK (wrapText (path, font, 200.0f)[0].endsWithChar ('/'));
}

/** Whether nothing bright lies in a message box's margins, between its text and its buttons included. */
static bool areMarginsClear (juce::AlertWindow& box)
{
    const auto picture = snapshot (box);
    const auto isDark = [&] (int x, int y) { return picture.getPixelAt (x, y).getBrightness() < 0.4f; };
    auto areClear = true;
    auto buttonTop = box.getHeight();

    for (auto* child : box.getChildren())
        if (dynamic_cast<juce::TextButton*> (child) != nullptr)
            buttonTop = juce::jmin (buttonTop, child->getY());

    for (int y = 4; y < box.getHeight() - 4; ++y)
        areClear = areClear && isDark (10, y) && isDark (box.getWidth() - 10, y);

    for (int x = 4; x < box.getWidth() - 4; ++x)
        areClear = areClear && isDark (x, 10) && isDark (x, buttonTop - 8) && isDark (x, box.getHeight() - 8);

    return areClear;
}

TEST_CASE ("a message box fits the screen, shows its buttons, and cuts only with an ellipsis")
{
    auto& look = installedLook();
    const auto screen = juce::Desktop::getInstance().getDisplays().getPrimaryDisplay()->userArea;
    const juce::String messages[] = { {},
                                      "Short",
                                      "Downloaded:\n" + juce::String::repeatedString ("Amp module\n", 100),
                                      "Failed:\n/" + juce::String::repeatedString ("NoBlanks/", 35),
                                      juce::String::repeatedString ("refused ", 1000) };

    for (auto& message : messages)
    {
        for (int buttons = 1; buttons <= 3; ++buttons)
        {
            const std::unique_ptr<juce::AlertWindow> box (
                look.createAlertWindow ("Klangora 4", message, "Quit", "Go back", "Later",
                                        juce::MessageBoxIconType::InfoIcon, buttons, nullptr));
            const auto text = box->getDescription().fromFirstOccurrenceOf (". ", false, false);
            const auto shortened = message.substring (0, 1999) + juce::String::charToString (0x2026);
            CHECK (text == (message.length() <= 2000 ? message : shortened));
            CHECK (screen.contains (box->getBounds()));
            CHECK (areMarginsClear (*box));

            int right = 0;

            for (auto* name : { "Quit", "Go back", "Later" }) // from left to right
                for (auto* child : box->getChildren())
                    if (child->getName() == name)
                        CHECK (std::exchange (right, child->getRight()) < child->getX());

            CHECK (right <= box->getWidth() - 10);

            for (auto* child : box->getChildren()) // as on a screen too small for the text
                child->setTopLeftPosition (child->getX(), 160);

            box->setSize (box->getWidth(), 220);
            CHECK (areMarginsClear (*box));
        }
    }
}

TEST_CASE ("a tooltip keeps clear of the mouse and inside its area")
{
    lookAndFeelKlangora look;
    const juce::Rectangle<int> area (100, 50, 1000, 800);
    const juce::String tip ("Click here to download everything that is yours!");
    const auto size = look.getTooltipBounds (tip, {}, area).withZeroOrigin();
    const auto w = size.getWidth(), h = size.getHeight();

    const struct
    {
        juce::Point<int> mouse, corner;
    } cases[] = {
        { { 300, 200 }, { 324, 206 } },
        { { 600, 450 }, { 624, 456 } }, // the very centre counts as left and above
        { { 601, 451 }, { 601 - w - 12, 451 - h - 6 } },
        { { 1090, 60 }, { 1090 - w - 12, 66 } },
        { { 0, 0 }, { 100, 50 } },
        { { 1400, 900 }, { 1100 - w, 850 - h } },
    };

    for (auto& c : cases)
        CHECK (look.getTooltipBounds (tip, c.mouse, area) == size + c.corner);

    juce::Image drawn (juce::Image::RGB, w, h, true);
    juce::Graphics g (drawn);
    look.drawTooltip (g, tip + "<Beta>", w, h);

    for (int y = 1; y < h - 1; ++y)
        for (int x : { 1, 6, w - 3 })
            CHECK (drawn.getPixelAt (x, y) == look.findColour (juce::TooltipWindow::backgroundColourId));

    CHECK (look.getTooltipBounds ("<beta>" + tip + "<BETA>", {}, area).withZeroOrigin() == size);
}
