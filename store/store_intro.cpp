#include "store/store_intro.h"
#include "assets.h"
#include "ui/pagePanel.h"
#include "ui/palette.h"

static constexpr float welcomeHeight = 18.0f, dropCapHeight = 59.6f;

static const juce::Rectangle<int> panelBounds (24, 116, 652, 272), ruleBounds (42, 208, 616, 1);
static constexpr float ruleAlpha = 0.6f;

/** How far below the middle of its line a font's baseline lies. */
static float baselineOf (const juce::Font& font)
{
    return font.getAscent() - 0.5f * font.getHeight();
}

store_intro::store_intro (genericlistener& listenerToTell)
    : dropCap (juce::Font (dropCapHeight, juce::Font::bold)),
      welcome (juce::Font (welcomeHeight, juce::Font::bold)),
      content (*this,
               { { background, {}, { 0, 0, 700, 500 } },
                 { logOnButton, "Log on...", { 275, 415, 150, 24 } },
                 { dropCap, "W", { 35, 134, 56, 48 } },
                 { body,
                   "First you will need to logon to your Dorvik account, or create one if you don't have "
                   "one already. It's free and it will be associated with your email address.\n\n"
                   "When done, new amps, effects and features will be downloaded to your computer.",
                   { 42, 241, 632, 125 } },
                 // The six blanks leave room for the large initial, which hides the full stop.
                 { welcome, ".      elcome to the Dorvik Rigmart.", { 43, 155, 614, 69 } } }),
      focus (*this, logOnButton),
      listener (listenerToTell),
      banner (assets::bannerwelcome_png, assets::bannerwelcome_pngSize)
{
    logOnButton.addListener (this);
    setSize (700, 500);
}

void store_intro::paint (juce::Graphics& g)
{
    banner.draw (g);
    drawPagePanel (g, panelBounds);
    g.setColour (juce::Colour (palette::accent).withAlpha (ruleAlpha));
    g.fillRect (ruleBounds);
}

void store_intro::resized()
{
    content.layOut();
    welcome.setTopLeftPosition (getWidth() / 2 - 307, welcome.getY());

    // The initial and the rest of its word stand on one line, whatever the font: a border below the text lifts it.
    const auto drop = (float) (welcome.getBounds().getCentreY() - dropCap.getBounds().getCentreY())
                      + baselineOf (welcome.getFont()) - baselineOf (dropCap.getFont());
    welcome.setBorderSize ({ 0, 5, juce::roundToInt (2.0f * drop), 5 });
}

void store_intro::buttonClicked (juce::Button* button)
{
    if (button == &logOnButton)
        listener.handleMessage ("intro done", {}, {}, {});
}

void store_intro::buttonStateChanged (juce::Button*)
{}
