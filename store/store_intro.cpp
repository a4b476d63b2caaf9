#include "store/store_intro.h"
#include "assets.h"
#include "ui/pagePanel.h"

namespace
{
constexpr float bodyHeight = 15.0f, welcomeHeight = 18.0f, dropCapHeight = 59.6f;

const juce::Rectangle<int> pageBounds (0, 0, 700, 500);
const juce::Rectangle<int> bannerBounds (0, 0, 700, 48);
const juce::Rectangle<int> buttonBounds (275, 415, 150, 24);
const juce::Rectangle<int> dropCapBounds (35, 134, 56, 48);
const juce::Rectangle<int> bodyBounds (42, 241, 632, 125);
const juce::Rectangle<int> panelBounds (24, 116, 652, 272);
const juce::Rectangle<int> ruleBounds (42, 208, 616, 1);
constexpr juce::uint32 ruleColour = 0x99ffb454;

/** How far below the middle of its line a font's baseline lies. */
float baselineOf (const juce::Font& font)
{
    return font.getAscent() - 0.5f * font.getHeight();
}
}

store_intro::store_intro (genericlistener& listenerToTell)
    : background ({}, juce::Font (bodyHeight)),
      logOnButton ("new button"),
      dropCap ("W", juce::Font (dropCapHeight, juce::Font::bold)),
      body (
          "First you will need to logon to your Dorvik account, or create one if you don't have one already. "
          "It's free and it will be associated with your email address.\n\n"
          "When done, new amps, effects and features will be downloaded to your computer.",
          juce::Font (bodyHeight)),
      // The six blanks leave room for the large initial, which hides the full stop.
      welcome (".      elcome to the Dorvik Rigmart.", juce::Font (welcomeHeight, juce::Font::bold)),
      listener (listenerToTell),
      banner (juce::ImageCache::getFromMemory (assets::bannerwelcome_png, assets::bannerwelcome_pngSize))
{
    logOnButton.setButtonText ("Log on...");
    logOnButton.addListener (this);

    addAndMakeVisible (background);
    addAndMakeVisible (logOnButton);
    addAndMakeVisible (dropCap);
    addAndMakeVisible (body);
    addAndMakeVisible (welcome);
    setSize (pageBounds.getWidth(), pageBounds.getHeight());
}

void store_intro::paint (juce::Graphics& g)
{
    g.setColour (juce::Colours::black);
    g.drawImageWithin (banner, bannerBounds.getX(), bannerBounds.getY(), bannerBounds.getWidth(),
                       bannerBounds.getHeight(),
                       juce::RectanglePlacement::centred | juce::RectanglePlacement::onlyReduceInSize, false);
    drawPagePanel (g, panelBounds);
    g.setColour (juce::Colour (ruleColour));
    g.fillRect (ruleBounds);
}

void store_intro::resized()
{
    background.setBounds (pageBounds);
    logOnButton.setBounds (buttonBounds);
    dropCap.setBounds (dropCapBounds);
    body.setBounds (bodyBounds);
    welcome.setBounds (getWidth() / 2 - 307, 155, 614, 69);

    // The initial and the rest of its word stand on one line, whatever the font: a border below the text lifts it.
    const auto drop = (float) (welcome.getBounds().getCentreY() - dropCap.getBounds().getCentreY())
                      + baselineOf (welcome.getFont()) - baselineOf (dropCap.getFont());
    welcome.setBorderSize ({ 0, 5, juce::roundToInt (2.0f * drop), 5 });
}

void store_intro::visibilityChanged()
{
    if (isShowing() && ! isCurrentlyBlockedByAnotherModalComponent())
        logOnButton.grabKeyboardFocus();
}

void store_intro::buttonClicked (juce::Button* button)
{
    if (button == &logOnButton)
        listener.handleMessage ("intro done", {}, {}, {});
}

void store_intro::buttonStateChanged (juce::Button*)
{}
