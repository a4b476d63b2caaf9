#include "tests/support/person.h"
#include "tests/support/pictures.h"
#include "ui/lookAndFeelKlangora.h"
#include "ui/messageBox.h"
#include <catch2/catch.hpp>

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

        for (auto* button : findAll<juce::TextButton> (box))
        {
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
}
