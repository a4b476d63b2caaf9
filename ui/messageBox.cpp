#include "ui/messageBox.h"
#include "ui/windowHints.h"

static constexpr int longestDescription = 2000; // the framework cuts silently a little later
static constexpr int margin = 20, iconSize = 40, iconGap = 16, titleGap = 8;
static constexpr int buttonGap = 20, buttonSpacing = 10;
static constexpr int lineLength = 520, narrowestBox = 360;
static constexpr float leastScreenWidth = 640.0f, leastScreenHeight = 480.0f; // for a box in its full size
static constexpr int editorMargin = 3; // what the framework's editor adds right of its text
static constexpr float lineSpacing = 1.25f;
static constexpr int heightLeftFree = 100; // on the screen, for a frame and a task bar that nobody tells of
static constexpr int farAway = 1 << 20;    // more pixels than any text is high

static juce::String shortened (const juce::String& text, int length)
{
    return text.length() <= length
               ? text
               : text.substring (0, length - 1) + juce::String::charToString (0x2026); // an ellipsis
}

/** The framework's editor lays out a word that is longer than a line in the square of its length: a page of 100,000
    letters without a blank took minutes. Such words get line breaks; in a text that no address or path is as long as
    even those that are hardly longer than a line. */
static juce::String withShorterWords (const juce::String& text)
{
    const auto longestWord = text.getNumBytesAsUTF8() > 100000 ? 60 : 500;
    juce::MemoryOutputStream result;
    int length = 0;

    for (auto character = text.getCharPointer(); ! character.isEmpty(); ++character)
    {
        length = character.isWhitespace() ? 0 : length + 1;

        if (length > longestWord)
        {
            result << "\n";
            length = 1;
        }

        result.appendUTF8Char (*character);
    }

    return result.toUTF8();
}

static bool isAnsweringKeyDown()
{
    for (auto key : { juce::KeyPress::returnKey, juce::KeyPress::escapeKey, juce::KeyPress::spaceKey })
        if (juce::KeyPress::isKeyCurrentlyDown (key))
            return true;

    return false;
}

void messageBox::selectableText::addPopupMenuItems (juce::PopupMenu& menu, const juce::MouseEvent*)
{
    menu.addItem (juce::StandardApplicationCommandIDs::copy, "Copy", ! getHighlightedRegion().isEmpty());
    menu.addItem (juce::StandardApplicationCommandIDs::selectAll, "Select All");
}

messageBox::messageBox (const juce::String& title, const juce::String& message,
                        const juce::StringArray& buttonLabels, juce::MessageBoxIconType icon,
                        juce::Component* owner)
    : AlertWindow (title, shortened (message, longestDescription), icon, owner),
      wasHeldBefore (isAnsweringKeyDown())
{
    if (const auto screen = getParentMonitorArea().toFloat(); owner == nullptr)
        scaleToFit =
            juce::jmin (1.0f, screen.getWidth() / leastScreenWidth, screen.getHeight() / leastScreenHeight);

    const juce::KeyPress escape (juce::KeyPress::escapeKey), enter (juce::KeyPress::returnKey);
    const auto letterOf = [] (const juce::String& label) {
        return juce::KeyPress ((int) juce::CharacterFunctions::toLowerCase (label[0]), {}, 0);
    };

    if (buttonLabels.size() == 1)
    {
        addButton (buttonLabels[0], 0, escape, enter);
    }
    else if (buttonLabels.size() == 2)
    {
        addButton (buttonLabels[0], 1, enter, letterOf (buttonLabels[0]));
        addButton (buttonLabels[1], 0, escape, letterOf (buttonLabels[1]));
    }
    else
    {
        addButton (buttonLabels[0], 1, letterOf (buttonLabels[0]));
        addButton (buttonLabels[1], 2, letterOf (buttonLabels[1]));
        addButton (buttonLabels[2], 0, escape);
    }

    for (auto* button : getButtons())
        button->addKeyListener (this);

    showText (message);
    layOut (owner);
    windowHints::setIcon (*this);

    if (owner != nullptr)
        windowHints::setDialogOf (*this, *owner);
}

void messageBox::showText (const juce::String& message)
{
    for (auto colour : { juce::TextEditor::backgroundColourId, juce::TextEditor::outlineColourId,
                         juce::TextEditor::focusedOutlineColourId, juce::TextEditor::shadowColourId })
        text.setColour (colour, juce::Colours::transparentBlack);

    text.setColour (juce::TextEditor::textColourId, findColour (textColourId));
    text.setMultiLine (true);
    text.setReadOnly (true);
    text.setCaretVisible (false);
    text.setWantsKeyboardFocus (false); // the keys go to the box, which scrolls and copies
    text.setMouseCursor (juce::MouseCursor::IBeamCursor);
    text.setBorder ({});
    text.setIndents (0, 0);
    text.setLineSpacing (lineSpacing);
    text.setFont (getLookAndFeel().getAlertWindowMessageFont());
    text.setScrollBarThickness (getLookAndFeel().getDefaultScrollbarWidth());
    text.setComponentID ("message text");
    text.setText (withShorterWords (shortened (message, longestText)), false);
    addAndMakeVisible (text);
}

std::vector<juce::TextButton*> messageBox::getButtons() const
{
    std::vector<juce::TextButton*> found;

    for (auto* child : getChildren())
        if (auto* button = dynamic_cast<juce::TextButton*> (child))
            found.push_back (button);

    // From left to right, in which order the framework has lined them up.
    std::sort (found.begin(), found.end(), [] (auto* a, auto* b) { return a->getX() < b->getX(); });
    return found;
}

juce::Rectangle<int> messageBox::getIconArea() const
{
    return { margin, margin, iconSize, iconSize };
}

juce::Rectangle<int> messageBox::getTitleArea() const
{
    const auto left = margin + (getAlertType() == juce::MessageBoxIconType::NoIcon ? 0 : iconSize + iconGap);
    const auto height =
        juce::roundToInt (lineSpacing * getLookAndFeel().getAlertWindowTitleFont().getHeight());
    return { left, margin, getWidth() - left - margin, height };
}

int messageBox::heightOfTextAt (int width)
{
    text.setSize (width, farAway);
    return text.getTextHeight();
}

/** The least width at which a text of a few lines still has no line more. */
int messageBox::widthOfEvenLines (int most)
{
    constexpr int longestToBalance = 1000, step = 4;
    const auto height = heightOfTextAt (most);
    auto width = most;

    if (text.getTotalNumChars() <= longestToBalance)
        for (auto tooNarrow = 0; width - tooNarrow > step;)
        {
            const auto middle = (width + tooNarrow) / 2;
            (heightOfTextAt (middle) <= height ? width : tooNarrow) = middle;
        }

    return width;
}

float messageBox::getDesktopScaleFactor() const
{
    return scaleToFit * AlertWindow::getDesktopScaleFactor();
}

void messageBox::layOut (juce::Component* owner)
{
    const auto scale =
        messageBox::getDesktopScaleFactor() / juce::Desktop::getInstance().getGlobalScaleFactor();
    const auto& onScreen = owner != nullptr ? *owner : *this;
    const auto screen = (onScreen.getParentMonitorArea().toFloat() / scale).toNearestInt();
    const auto titleArea = getTitleArea();
    const auto titleWidth =
        juce::roundToInt (getLookAndFeel().getAlertWindowTitleFont().getStringWidthFloat (getName())) + 1;
    const auto lined = getButtons();
    const auto top = titleArea.getBottom() + titleGap;
    const auto bottom = buttonGap + getLookAndFeel().getAlertWindowButtonHeight() + margin;
    const auto mostWidth = juce::jmax (narrowestBox, juce::roundToInt (0.8f * (float) screen.getWidth()));
    const auto mostTextHeight = juce::jmax (1, screen.getHeight() - heightLeftFree - top - bottom);
    const auto mostTextWidth = juce::jmin (lineLength, mostWidth - titleArea.getX() - margin);

    auto buttonsWidth = -buttonSpacing;

    for (auto* button : lined)
        buttonsWidth += button->getWidth() + buttonSpacing;

    auto textWidth = widthOfEvenLines (mostTextWidth) + editorMargin;
    auto textHeight = heightOfTextAt (textWidth);

    if (textHeight > mostTextHeight)
    {
        textWidth = mostTextWidth + getLookAndFeel().getDefaultScrollbarWidth();
        textHeight = mostTextHeight;
    }

    const auto width =
        juce::jmin (mostWidth, juce::jmax (narrowestBox, buttonsWidth + 2 * margin,
                                           titleArea.getX() + juce::jmax (textWidth, titleWidth) + margin));
    const auto height = bottom + juce::jmax (top + textHeight, getIconArea().getBottom());

    if (owner != nullptr)
        centreAroundComponent (owner, width, height);
    else
        setBounds (screen.withSizeKeepingCentre (width, height));

    text.setBounds (titleArea.getX(), top, textWidth, textHeight);
    text.setCaretPosition (0);

    auto x = width - margin - buttonsWidth;

    for (auto* button : lined)
    {
        button->setTopLeftPosition (x, height - margin - button->getHeight());
        x += button->getWidth() + buttonSpacing;
    }
}

bool messageBox::keyPressed (const juce::KeyPress& key, juce::Component*)
{
    const auto isAnswer = key.isKeyCode (juce::KeyPress::returnKey)
                          || key.isKeyCode (juce::KeyPress::escapeKey)
                          || key.isKeyCode (juce::KeyPress::spaceKey);
    return wasHeldBefore && isAnswer;
}

bool messageBox::keyStateChanged (bool isKeyDown)
{
    wasHeldBefore = wasHeldBefore && isAnsweringKeyDown();
    return AlertWindow::keyStateChanged (isKeyDown);
}

bool messageBox::keyPressed (const juce::KeyPress& key)
{
    if (keyPressed (key, this))
        return true;

    if (key == juce::KeyPress ('c', juce::ModifierKeys::commandModifier, 0))
    {
        copy();
        return true;
    }

    if (key == juce::KeyPress ('a', juce::ModifierKeys::commandModifier, 0))
    {
        text.selectAll();
        return true;
    }

    if (auto* button = dynamic_cast<juce::TextButton*> (getCurrentlyFocusedComponent());
        button != nullptr && key == juce::KeyPress (juce::KeyPress::spaceKey))
    {
        button->triggerClick();
        return true;
    }

    return scroll (key) || AlertWindow::keyPressed (key);
}

void messageBox::copy()
{
    const auto selected = text.getHighlightedText();
    juce::SystemClipboard::copyTextToClipboard (selected.isNotEmpty() ? selected
                                                                      : getName() + "\n\n" + getText());
}

bool messageBox::scroll (const juce::KeyPress& key)
{
    const auto line = juce::roundToInt (lineSpacing * text.getFont().getHeight());
    const auto page = juce::jmax (line, text.getHeight() - line);
    const std::pair<int, int> distances[] = {
        { juce::KeyPress::upKey, -line },      { juce::KeyPress::downKey, line },
        { juce::KeyPress::pageUpKey, -page },  { juce::KeyPress::pageDownKey, page },
        { juce::KeyPress::homeKey, -farAway }, { juce::KeyPress::endKey, farAway },
    };

    for (auto& [code, distance] : distances)
        if (key.isKeyCode (code))
            for (auto* child : text.getChildren())
                if (auto* view = dynamic_cast<juce::Viewport*> (child))
                {
                    view->setViewPosition (0, view->getViewPositionY() + distance);
                    return true;
                }

    return false;
}

void messageBox::mouseWheelMove (const juce::MouseEvent& e, const juce::MouseWheelDetails& wheel)
{
    if (! text.getBounds().contains (e.getEventRelativeTo (this).getPosition())) // else it came from there
        text.mouseWheelMove (e.getEventRelativeTo (&text), wheel);
}
