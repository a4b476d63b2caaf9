#include "ui/linkLabel.h"
#include "ui/openInBrowser.h"
#include "ui/palette.h"
#include <cmath>

juce::String linkLabel::getAddress() const
{
    return getText().fromLastOccurrenceOf (" ", false, false);
}

juce::Rectangle<int> linkLabel::getAddressBounds() const
{
    const auto address = getAddress();
    const auto before = getText().dropLastCharacters (address.length());
    const auto shownFont = getFont();
    const auto area = getBorderSize().subtractedFrom (getLocalBounds());
    return area.withTrimmedLeft (juce::roundToInt (shownFont.getStringWidthFloat (before)))
        .withWidth ((int) std::ceil (shownFont.getStringWidthFloat (address)))
        .getIntersection (area);
}

void linkLabel::paint (juce::Graphics& g)
{
    const auto address = getAddress();
    const auto link = getAddressBounds();
    const auto area = getBorderSize().subtractedFrom (getLocalBounds());

    g.setFont (getFont());
    g.setColour (findColour (textColourId));
    g.drawText (getText().dropLastCharacters (address.length()), area.withRight (link.getX()),
                juce::Justification::centredLeft, false);

    g.setFont (getFont().withStyle (juce::Font::underlined));
    g.setColour (juce::Colour (palette::accent));
    g.drawText (address, link, juce::Justification::centredLeft, true);
}

void linkLabel::textWasChanged()
{
    setTitle (getText());
}

void linkLabel::mouseMove (const juce::MouseEvent& e)
{
    setMouseCursor (getAddressBounds().contains (e.getPosition()) ? juce::MouseCursor::PointingHandCursor
                                                                  : juce::MouseCursor::NormalCursor);
}

void linkLabel::mouseDown (const juce::MouseEvent& e)
{
    if (! getAddressBounds().contains (e.getPosition()) || e.getNumberOfClicks() > 1)
        return;

    if (! e.mods.isPopupMenu())
    {
        openInBrowser (getAddress());
        return;
    }

    juce::PopupMenu menu;
    menu.addItem ("Copy address",
                  [address = getAddress()] { juce::SystemClipboard::copyTextToClipboard (address); });
    menu.showMenuAsync (juce::PopupMenu::Options());
}

std::unique_ptr<juce::AccessibilityHandler> linkLabel::createAccessibilityHandler()
{
    return std::make_unique<juce::AccessibilityHandler> (
        *this, juce::AccessibilityRole::hyperlink,
        juce::AccessibilityActions().addAction (juce::AccessibilityActionType::press,
                                                [this] { openInBrowser (getAddress()); }));
}
