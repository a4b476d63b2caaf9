#include "app/installationPaths.h"
#include "tests/support/temporaryInstallation.h"
#include "tests/support/waiting.h"
#include "ui/lookAndFeelKlangora.h"
#include "ui/wrapText.h"
#include <catch2/catch.hpp>
#include <map>

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

/** Contrast ratio of two opaque colours after the Web Content Accessibility Guidelines. */
static float contrast (juce::Colour a, juce::Colour b)
{
    const auto linear = [] (float v) {
        return v <= 0.03928f ? v / 12.92f : std::pow ((v + 0.055f) / 1.055f, 2.4f);
    };
    const auto luminance = [&] (juce::Colour c) {
        return 0.05f + 0.2126f * linear (c.getFloatRed()) + 0.7152f * linear (c.getFloatGreen())
               + 0.0722f * linear (c.getFloatBlue());
    };
    const auto ratio = luminance (a) / luminance (b);
    return juce::jmax (ratio, 1.0f / ratio);
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

TEST_CASE ("the areas of one window share one picture")
{
    juce::Image striped (juce::Image::RGB, 40, 100, true);
    juce::Graphics g (striped);

    for (int y = 0; y < 100; ++y)
    {
        g.setColour (juce::Colour ((juce::uint8) (2 * y), 255, 0));
        g.fillRect (0, y, 40, 1);
    }

    interfaceData data;
    data.write (skinName, encode (striped));
    lookAndFeelKlangora look;
    const auto dark = look.findColour (juce::ResizableWindow::backgroundColourId);
    juce::Component window, child;
    window.setBounds (0, 300, 60, 100);
    window.addChildComponent (child);

    const struct
    {
        int y, width, height, left, top; // where the picture's corner comes to lie
    } cases[] = {
        { 0, 40, 50, 0, 0 }, { 30, 40, 50, 0, -30 }, { 60, 30, 50, -5, -50 }, { 0, 61, 120, 10, 0 }
    };

    for (auto& c : cases)
    {
        child.setTopLeftPosition (0, c.y);
        const auto image = background (look, child, c.width, c.height);
        CHECK (image.getPixelAt (20, 10) == striped.getPixelAt (20 - c.left, 10 - c.top));
        CHECK (image.getPixelAt (0, 10) == (c.left > 0 ? dark : image.getPixelAt (20, 10)));
        CHECK ((image.getPixelAt (20, c.height - 1) == dark) == (c.height > 100));
    }

    juce::Image image;
    look.renderDialogBackground (image, window, 0, -3, false);
    CHECK (image.getBounds() == juce::Rectangle<int> (1, 1));

    juce::Image shaded (juce::Image::ARGB, 40, 50, false);
    const auto kept = shaded; // shares its pixels for as long as the image is not made anew
    look.renderDialogBackground (shaded, window, 40, 50, true);
    const int greens[] = { 255, 170, 113 };

    for (int i = 0; i < 3; ++i)
        CHECK (kept.getPixelAt (20, 47 + i).getGreen() == Approx (greens[i]).margin (1));
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

/** Every state of a widget that a person must be able to tell apart. */
template <typename Widget>
static std::map<juce::String, juce::Image> statesOf (Widget& widget)
{
    juce::Component window;
    std::map<juce::String, juce::Image> states;
    window.setBounds (100, 100, 200, 60);
    window.addToDesktop (0);
    window.setVisible (true);
    window.addAndMakeVisible (widget);
    widget.setBounds (10, 10, 150, 24);
    widget.setWantsKeyboardFocus (true);
    widget.setEnabled (true);
    states["normal"] = snapshot (widget);

    if constexpr (std::is_base_of_v<juce::Button, Widget>)
    {
        widget.setState (juce::Button::buttonOver);
        states["over"] = snapshot (widget);
        widget.setState (juce::Button::buttonDown);
        states["down"] = snapshot (widget);
        widget.setState (juce::Button::buttonNormal);
    }

    waitFor ("the keyboard focus", [&] {
        widget.grabKeyboardFocus();
        return widget.hasKeyboardFocus (true);
    });
    states["focused"] = snapshot (widget);
    widget.giveAwayKeyboardFocus();
    widget.setEnabled (false);
    states["disabled"] = snapshot (widget);
    return states;
}

TEST_CASE ("every state of a widget looks different")
{
    auto& look = installedLook();
    juce::TextButton button ("Button");
    juce::ToggleButton off ("Toggle"), on ("Toggle");
    juce::ComboBox box;
    juce::TextEditor editor;
    juce::Slider slider;
    std::unique_ptr<juce::Button> close (look.createDocumentWindowButton (juce::DocumentWindow::closeButton));
    on.setToggleState (true, juce::dontSendNotification);

    for (auto& states : { statesOf (button), statesOf (off), statesOf (on), statesOf (box), statesOf (editor),
                          statesOf (slider), statesOf (*close) })
        for (auto& [name, image] : states)
            for (auto& [otherName, other] : states)
                CHECK ((encode (image) == encode (other)) == (name == otherName));

    CHECK (encode (statesOf (on)["normal"]) != encode (statesOf (off)["normal"]));
}

TEST_CASE ("text stands out from what lies behind it")
{
    lookAndFeelKlangora look;
    const auto colour = [&] (int id) { return look.findColour (id); };
    const auto dark = colour (juce::ResizableWindow::backgroundColourId);

    using row = juce::DirectoryContentsDisplayComponent;

    const struct
    {
        int text, background;
    } pairs[] = {
        { juce::Label::textColourId, juce::Label::backgroundColourId },
        { juce::TextEditor::highlightedTextColourId, juce::TextEditor::highlightColourId },
        { juce::ComboBox::textColourId, juce::ComboBox::backgroundColourId },
        { juce::PopupMenu::highlightedTextColourId, juce::PopupMenu::highlightedBackgroundColourId },
        { juce::AlertWindow::textColourId, juce::AlertWindow::backgroundColourId },
        { juce::TooltipWindow::textColourId, juce::TooltipWindow::backgroundColourId },
        { juce::Slider::textBoxTextColourId, juce::Slider::thumbColourId },
        { row::highlightedTextColourId, row::highlightColourId },
    };

    for (auto& p : pairs)
        CHECK (contrast (colour (p.text), dark.overlaidWith (colour (p.background))) >= 4.5f);

    juce::TextButton button ("Button");
    button.setSize (100, 24);

    for (auto [over, down] : { std::pair (false, false), { true, false }, { true, true } })
    {
        juce::Image image (juce::Image::RGB, 100, 24, true);
        juce::Graphics g (image);
        g.fillAll (dark);
        look.drawButtonBackground (g, button, colour (juce::TextButton::buttonColourId), over, down);

        for (int y = 6; y < 18; ++y)
            CHECK (contrast (colour (juce::TextButton::textColourOnId), image.getPixelAt (50, y)) >= 4.5f);
    }
}

TEST_CASE ("bodies and editors take their shade from their state and their place on the page")
{
    lookAndFeelKlangora look;
    juce::Component page;
    juce::TextButton button;
    juce::ComboBox box;
    juce::TextEditor editor;
    button.setSize (100, 24);
    box.setSize (100, 24);
    editor.setSize (100, 24);
    const auto paint = [] (auto&& draw) {
        juce::Image image (juce::Image::ARGB, 100, 24, true);
        juce::Graphics g (image);
        draw (g);
        return image.getPixelAt (50, 12);
    };
    const auto paintBox = [&] (juce::Graphics& g) {
        look.drawComboBox (g, 100, 24, false, 80, 0, 20, 24, box);
    };
    const auto paintEditor = [&] (juce::Graphics& g) { look.fillTextEditorBackground (g, 100, 24, editor); };

    const auto paintButton = [&] (bool isOver) {
        return paint ([&] (juce::Graphics& g) {
            look.drawButtonBackground (g, button, juce::Colour (0xff445566), isOver, false);
        });
    };

    CHECK (paintButton (true).getBrightness()
           == Approx (1.5f * paintButton (false).getBrightness()).margin (0.04));
    CHECK (paintButton (false).getFloatAlpha() == Approx (0.7f).margin (0.04));
    button.setEnabled (false);
    CHECK (paintButton (false).getFloatAlpha() == Approx (0.35f).margin (0.02));

    editor.setColour (juce::TextEditor::backgroundColourId, juce::Colours::transparentWhite);
    CHECK (paint (paintEditor).isTransparent());
    editor.setColour (juce::TextEditor::backgroundColourId, juce::Colour (0xff201000));
    CHECK (paint (paintEditor) == juce::Colour (0xff603000)); // three times as bright
    const auto alone = paint (paintBox).getBrightness();

    page.addAndMakeVisible (box);
    page.addAndMakeVisible (editor);
    CHECK (paint (paintBox).getBrightness() == Approx (alone)); // a page without height
    page.setSize (400, 250);
    box.setTopLeftPosition (0, 125);
    editor.setTopLeftPosition (0, 238); // at the far end of the gradient, where the factor is 0.7 + 1.5
    CHECK (paint (paintBox).getBrightness() == Approx (alone / 1.5f).margin (0.02));
    CHECK (paint (paintEditor).getRed() == Approx (0x20 * 2.2f).margin (2));
}
