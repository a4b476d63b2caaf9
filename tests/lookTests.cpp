#include "app/installationPaths.h"
#include "tests/support/temporaryInstallation.h"
#include "ui/lookAndFeelKlangora.h"
#include "ui/messageBox.h"
#include <catch2/catch.hpp>

/** A picture file. It is told by its bytes, whatever its name says. */
static juce::MemoryBlock encode (const juce::Image& image)
{
    juce::MemoryOutputStream stream;
    REQUIRE (juce::PNGImageFormat().writeImageToStream (image, stream));
    return stream.getMemoryBlock();
}

static const auto skinName = juce::String ("generic_background.jpg");

TEST_CASE ("without a good picture the background is plain and dark; a good one is loaded once")
{
    const juce::Component component;
    const auto good = encode ({ juce::Image::RGB, 40, 100, true });
    const auto huge = encode ({ juce::Image::RGB, 9000, 2, true });
    const auto isPlain = [&] (lookAndFeelKlangora& look) {
        juce::Image image;
        look.renderDialogBackground (image, component, 30, 20, false);
        return look.getSkinBackground().isNull()
               && image.getPixelAt (7, 7) == look.findColour (juce::ResizableWindow::backgroundColourId);
    };

    lookAndFeelKlangora look;
    CHECK (isPlain (look)); // no source at all
    const temporaryInstallation data;
    jSimpleArchiveDirectory source;
    source.open (data.folder.getFullPathName());
    guiDataSource = &source;

    for (auto& bytes : { huge, juce::MemoryBlock (good.getData(), good.getSize() / 2) })
    {
        data.write (skinName, bytes);
        lookAndFeelKlangora another;
        CHECK (isPlain (another));
    }

    data.write (skinName, good);
    CHECK (look.getSkinBackground().getBounds() == juce::Rectangle<int> (40, 100));
    data.write (skinName, huge);
    CHECK (look.getSkinBackground().isValid());
    guiDataSource = nullptr;
}

TEST_CASE ("a picture's name without an ending stands for the .jpg, else for the .png")
{
    const temporaryInstallation data;
    jSimpleArchiveDirectory source;
    source.open (data.folder.getFullPathName());
    const auto widthOf = [&] (const char* name) {
        return lookAndFeelKlangora::loadPicture (source, name).getWidth();
    };

    CHECK (widthOf ("knob") == 0);
    data.write ("knob", encode ({ juce::Image::RGB, 1, 1, true }));
    CHECK (widthOf ("knob") == 1);
    data.write ("knob.png", encode ({ juce::Image::RGB, 2, 1, true }));
    CHECK (widthOf ("knob") == 2);
    data.write ("knob.jpg", encode ({ juce::Image::RGB, 3, 1, true }));
    CHECK (widthOf ("knob") == 3);
    CHECK (widthOf ("knob.png") == 2);
}

TEST_CASE ("with the reload flag a new skin shows at once, and only with a source")
{
    const temporaryInstallation data;
    jSimpleArchiveDirectory source;
    source.open (data.folder.getFullPathName());
    guiDataSource = &source;
    lookAndFeelKlangora look;
    const auto widthAfterWriting = [&] (int width) {
        data.write (skinName, encode ({ juce::Image::RGB, width, 1, true }));
        return look.getSkinBackground().getWidth();
    };

    CHECK (widthAfterWriting (5) == 5);
    CHECK (widthAfterWriting (6) == 5);
    look.reloadSkinBackground = true;
    CHECK (widthAfterWriting (7) == 7);
    CHECK (widthAfterWriting (8) == 8);
    guiDataSource = nullptr;
    CHECK (widthAfterWriting (9) == 8);
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

TEST_CASE (
    "a message box fits the screen and shows its buttons; all of its text can be scrolled to and copied")
{
    lookAndFeelKlangora::install();
    auto& look = juce::LookAndFeel::getDefaultLookAndFeel();
    const auto screen = juce::Desktop::getInstance().getDisplays().getPrimaryDisplay()->userArea;
    const juce::KeyPress copy ('c', juce::ModifierKeys::commandModifier, 0), end (juce::KeyPress::endKey);

    for (auto& message :
         { juce::String ("Short."), "Downloaded:\n" + juce::String::repeatedString ("Amp module\n", 102),
           "Failed:\n/" + juce::String::repeatedString ("NoBlanks/", 35),
           juce::String::repeatedString ("refused ", 50000) })
    {
        const std::unique_ptr<juce::AlertWindow> made (look.createAlertWindow (
            "Klangora 4", message, "Quit", "Go back", {}, juce::MessageBoxIconType::InfoIcon, 2, nullptr));
        auto& box = dynamic_cast<messageBox&> (*made);
        const auto shown = box.getText();
        CHECK (shown.length() == juce::jmin (message.length(), messageBox::longestText));
        CHECK (shown.endsWithChar (0x2026) == (message.length() > messageBox::longestText));
        CHECK (screen.contains (box.getBounds()));

        box.keyPressed (copy);
        CHECK (juce::SystemClipboard::getTextFromClipboard() == "Klangora 4\n\n" + shown);
        const auto picture = [&] { return encode (box.createComponentSnapshot (box.getLocalBounds())); };
        const auto atTop = picture();
        box.keyPressed (end);
        const auto* text = box.findChildWithID ("message text");
        CHECK ((atTop == picture()) == (text->getHeight() < screen.getHeight() / 2));

        for (auto* child : box.getChildren())
            if (dynamic_cast<juce::TextButton*> (child) != nullptr)
            {
                CHECK (text->getBottom() < child->getY());
                CHECK (child->getBottom() < box.getHeight());
            }
    }
}

TEST_CASE ("the lines of a message box are of much the same length, and can be selected and copied")
{
    lookAndFeelKlangora::install();
    const auto question =
        "This will close your connections with the Dorvik Rigmart store. Do you want to quit?";
    messageBox box ("Klangora 4", question, { "Quit", "Go back" }, juce::MessageBoxIconType::QuestionIcon,
                    nullptr);
    auto& text = *dynamic_cast<juce::TextEditor*> (box.findChildWithID ("message text"));
    const auto lastLine = text.getTextBounds ({ text.getTotalNumChars() - 2, text.getTotalNumChars() });
    CHECK (lastLine.getBounds().getRight() > text.getWidth() / 2);

    // What is selected is copied alone.
    for (auto key : { 'a', 'c' })
        box.keyPressed (juce::KeyPress (key, juce::ModifierKeys::commandModifier, 0));

    CHECK (juce::SystemClipboard::getTextFromClipboard() == question);
}
