#include "ui/jpseudomodaldialogtitlebar.h"

static const juce::Colour lightAtTop (0x00ffffff), lightAtBottom (0x33ffffff);
static constexpr float titleFontShare = 0.8f, titleFontStretch = 0.8f;

jpseudomodaldialogtitlebar::jpseudomodaldialogtitlebar (const juce::String& titleToShow, bool canDragWindow)
    : title (titleToShow),
      draggable (canDragWindow)
{
    setAccessible (false); // the overlay has the same title
}

void jpseudomodaldialogtitlebar::paint (juce::Graphics& g)
{
    const auto height = (float) getHeight();
    g.setGradientFill (juce::ColourGradient::vertical (lightAtTop, 0.0f, lightAtBottom, height));
    g.fillAll();

    g.setColour (findColour (juce::TextButton::textColourOnId));
    g.setFont (juce::Font (titleFontShare * height, juce::Font::bold).withHorizontalScale (titleFontStretch));
    g.drawText (title, getLocalBounds(), juce::Justification::centred, true);
}

void jpseudomodaldialogtitlebar::mouseDown (const juce::MouseEvent& e)
{
    windowAtMouseDown = getTopLevelComponent()->getPosition();
    mouseAtMouseDown = e.getScreenPosition();
}

void jpseudomodaldialogtitlebar::mouseDrag (const juce::MouseEvent& e)
{
    if (! draggable)
        return;

    // Where the mouse is now, not where the event saw it: an event that was sent before the window's last move
    // arrived is off by that move.
    auto& window = *getTopLevelComponent();
    const auto moved = e.source.getScreenPosition().roundToInt() - mouseAtMouseDown;
    const auto scale = window.getDesktopScaleFactor() / juce::Desktop::getInstance().getGlobalScaleFactor();
    window.setTopLeftPosition (windowAtMouseDown + (moved.toFloat() / scale).roundToInt());
}
