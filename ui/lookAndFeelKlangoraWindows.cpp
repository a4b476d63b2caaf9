#include "ui/GlassWindowButton.h"
#include "ui/lookAndFeelKlangora.h"
#include "ui/messageBox.h"

namespace
{
constexpr int narrowestButton = 88; // of a message box

void drawAlertIcon (juce::Graphics& g, juce::Rectangle<float> area, juce::MessageBoxIconType type,
                    juce::Colour colour)
{
    constexpr float thickness = 2.5f;
    juce::Path outline;

    if (type == juce::MessageBoxIconType::WarningIcon)
    {
        outline.addTriangle (area.getCentreX(), area.getY(), area.getRight(), area.getBottom(), area.getX(),
                             area.getBottom());
        outline = outline.createPathWithRoundedCorners (5.0f);
    }
    else
    {
        outline.addEllipse (area.reduced (0.5f * thickness));
    }

    g.setColour (colour.withMultipliedAlpha (0.18f));
    g.fillPath (outline);
    g.setColour (colour);
    g.strokePath (outline, juce::PathStrokeType (thickness));
    g.setFont ({ 0.62f * area.getHeight(), juce::Font::bold });
    g.drawText (type == juce::MessageBoxIconType::WarningIcon    ? "!"
                : type == juce::MessageBoxIconType::QuestionIcon ? "?"
                                                                 : "i",
                area, juce::Justification::centred, false);
}

// Tooltips
constexpr float tooltipMargin = 7.0f, tooltipTopMargin = 3.0f;

juce::TextLayout layOutTooltip (const juce::String& text, juce::Colour colour)
{
    constexpr float fontHeight = 13.5f, mostWidth = 400.0f;
    juce::AttributedString attributed;
    attributed.setJustification (juce::Justification::topLeft);
    attributed.append (text.replace ("<BETA>", "", true), juce::Font (fontHeight), colour);

    juce::TextLayout layout;
    layout.createLayoutWithBalancedLineLengths (attributed, mostWidth);
    return layout;
}
}

/** The window that a message box belongs over, or null. The framework would take the active one, and right after a
    box has closed there may be none. */
static juce::Component* windowBelowBoxes()
{
    for (int i = 0; i < juce::TopLevelWindow::getNumTopLevelWindows(); ++i)
        if (auto* window = juce::TopLevelWindow::getTopLevelWindow (i);
            window->isVisible() && dynamic_cast<juce::AlertWindow*> (window) == nullptr)
            return window;

    return nullptr;
}

juce::AlertWindow*
lookAndFeelKlangora::createAlertWindow (const juce::String& title, const juce::String& message,
                                        const juce::String& button1, const juce::String& button2,
                                        const juce::String& button3, juce::MessageBoxIconType icon,
                                        int numButtons, juce::Component* associatedComponent)
{
    juce::StringArray labels (button1, button2, button3);
    labels.removeRange (numButtons, labels.size());

    return new messageBox (title, message, labels, icon,
                           associatedComponent != nullptr ? associatedComponent : windowBelowBoxes());
}

void lookAndFeelKlangora::drawAlertBox (juce::Graphics& g, juce::AlertWindow& alert,
                                        const juce::Rectangle<int>& textArea, juce::TextLayout& textLayout)
{
    constexpr float veil = 0.7f; // how much of the picture the background colour hides
    const juce::Colour innerFrame (0x33ffffff);
    const auto area = alert.getLocalBounds();

    paintBackground (g, &alert, area.getWidth(), area.getHeight(), false);
    g.setColour (alert.findColour (juce::AlertWindow::backgroundColourId).withMultipliedAlpha (veil));
    g.fillRect (area);
    g.setColour (alert.findColour (juce::AlertWindow::outlineColourId));
    g.drawRect (area, 1);
    g.setColour (innerFrame);
    g.drawRect (area.reduced (1), 1);

    const auto* box = dynamic_cast<messageBox*> (&alert);

    if (box == nullptr) // one that was not made with createAlertWindow
        return textLayout.draw (g, textArea.toFloat());

    if (box->getAlertType() != juce::MessageBoxIconType::NoIcon)
        drawAlertIcon (g, box->getIconArea().toFloat(), box->getAlertType(),
                       findColour (juce::TextEditor::focusedOutlineColourId));

    g.setColour (box->findColour (juce::AlertWindow::textColourId));
    g.setFont (getAlertWindowTitleFont());
    g.drawText (box->getName(), box->getTitleArea(), juce::Justification::centredLeft, true);
}

juce::Array<int> lookAndFeelKlangora::getWidthsForTextButtons (juce::AlertWindow&,
                                                               const juce::Array<juce::TextButton*>& buttons)
{
    juce::Array<int> widths;

    for (auto* button : buttons)
        widths.add (
            juce::jmax (narrowestButton, button->getBestWidthForHeight (getAlertWindowButtonHeight())));

    return widths;
}

void lookAndFeelKlangora::drawPopupMenuBackground (juce::Graphics& g, int width, int height)
{
    paintBackground (g, nullptr, width, height, true);
    g.fillAll (juce::Colour (0x55000000));
    g.setColour (juce::Colour (0x55ffffff));
    g.drawRect (0, 0, width, height, 1);
}

juce::Font lookAndFeelKlangora::getPopupMenuFont()
{
    return { 14.0f };
}

void lookAndFeelKlangora::drawPopupMenuItem (juce::Graphics& g, const juce::Rectangle<int>& area,
                                             bool isSeparator, bool isActive, bool isHighlighted,
                                             bool isTicked, bool hasSubMenu, const juce::String& text,
                                             const juce::String& shortcutKeyText, const juce::Drawable* icon,
                                             const juce::Colour* textColour)
{
    if (isSeparator)
    {
        const auto line = area.reduced (6, 0).withSizeKeepingCentre (area.getWidth() - 12, 2);
        g.setColour (juce::Colour (0x55000000));
        g.fillRect (line.withHeight (1));
        g.setColour (juce::Colour (0x33ffffff));
        g.fillRect (line.withTrimmedTop (1));
        return;
    }

    auto row = area.reduced (1, 0);
    auto colour = textColour != nullptr ? *textColour : findColour (juce::PopupMenu::textColourId);

    if (isHighlighted && isActive)
    {
        g.setColour (findColour (juce::PopupMenu::highlightedBackgroundColourId));
        g.fillRect (row);
        colour = findColour (juce::PopupMenu::highlightedTextColourId);
    }

    g.setColour (colour.withMultipliedAlpha (isActive ? 1.0f : 0.45f));

    const auto markArea =
        row.removeFromLeft (row.getHeight()).toFloat().reduced (0.25f * (float) row.getHeight());
    row.removeFromRight (row.getHeight() / 3);

    if (icon != nullptr)
    {
        icon->drawWithin (g, markArea,
                          juce::RectanglePlacement::centred | juce::RectanglePlacement::onlyReduceInSize,
                          isActive ? 1.0f : 0.45f);
    }
    else if (isTicked)
    {
        juce::Path tick;
        tick.startNewSubPath (markArea.getRelativePoint (0.0f, 0.5f));
        tick.lineTo (markArea.getRelativePoint (0.35f, 0.9f));
        tick.lineTo (markArea.getRelativePoint (1.0f, 0.1f));
        g.strokePath (tick, { 1.8f, juce::PathStrokeType::mitered, juce::PathStrokeType::rounded });
    }

    if (hasSubMenu)
    {
        const auto arrow =
            row.removeFromRight (row.getHeight() / 2).toFloat().withSizeKeepingCentre (4.0f, 8.0f);
        juce::Path path;
        path.startNewSubPath (arrow.getTopLeft());
        path.lineTo (arrow.getRight(), arrow.getCentreY());
        path.lineTo (arrow.getBottomLeft());
        g.strokePath (path, { 1.6f, juce::PathStrokeType::mitered, juce::PathStrokeType::rounded });
    }

    auto font = getPopupMenuFont();
    font.setHeight (juce::jmin (font.getHeight(), (float) area.getHeight() / 1.3f));

    if (shortcutKeyText.isNotEmpty())
    {
        const auto small = font.withHeight (0.85f * font.getHeight());
        g.setFont (small);
        g.drawText (shortcutKeyText, row.removeFromRight (small.getStringWidth (shortcutKeyText) + 8),
                    juce::Justification::centredRight, true);
    }

    g.setFont (font);
    g.drawText (text, row, juce::Justification::centredLeft, true);
}

juce::Rectangle<int> lookAndFeelKlangora::getTooltipBounds (const juce::String& text, juce::Point<int> mouse,
                                                            juce::Rectangle<int> area)
{
    const auto layout = layOutTooltip (text, {});
    const auto width = (int) (layout.getWidth() + 2.0f * tooltipMargin);
    const auto height = (int) (layout.getHeight() + 2.0f * tooltipTopMargin);
    const auto x = mouse.x > area.getCentreX() ? mouse.x - (width + 12) : mouse.x + 24;
    const auto y = mouse.y > area.getCentreY() ? mouse.y - (height + 6) : mouse.y + 6;
    return juce::Rectangle<int> (x, y, width, height).constrainedWithin (area);
}

void lookAndFeelKlangora::drawTooltip (juce::Graphics& g, const juce::String& text, int width, int height)
{
    g.fillAll (findColour (juce::TooltipWindow::backgroundColourId));
    g.setColour (findColour (juce::TooltipWindow::outlineColourId));
    g.drawRect (0, 0, width, height, 1);
    layOutTooltip (text, findColour (juce::TooltipWindow::textColourId))
        .draw (g, { tooltipMargin, tooltipTopMargin, (float) width, (float) height });
}

juce::Button* lookAndFeelKlangora::createDocumentWindowButton (int type)
{
    constexpr float thickness = 0.25f, diagonalThickness = 0.35f;
    juce::Path shape;

    if (type == juce::DocumentWindow::closeButton)
    {
        shape.addLineSegment ({ 0.0f, 0.0f, 1.0f, 1.0f }, diagonalThickness);
        shape.addLineSegment ({ 1.0f, 0.0f, 0.0f, 1.0f }, diagonalThickness);
        return new GlassWindowButton ("close", juce::Colour (0xff660000), shape, shape);
    }

    shape.addLineSegment ({ 0.0f, 0.5f, 1.0f, 0.5f }, thickness);

    if (type == juce::DocumentWindow::minimiseButton)
        return new GlassWindowButton ("minimise", juce::Colour (0xffaa8811), shape, shape);

    shape.addLineSegment ({ 0.5f, 0.0f, 0.5f, 1.0f }, thickness);

    juce::Path square; // an open one behind a smaller one
    square.startNewSubPath (45.0f, 100.0f);
    square.lineTo (0.0f, 100.0f);
    square.lineTo (0.0f, 0.0f);
    square.lineTo (100.0f, 0.0f);
    square.lineTo (100.0f, 45.0f);
    square.addRectangle (45.0f, 45.0f, 100.0f, 100.0f);
    juce::PathStrokeType (30.0f).createStrokedPath (square, square);
    return new GlassWindowButton ("maximise", juce::Colour (0xff119911), shape, square);
}
