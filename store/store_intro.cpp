#include "store/store_intro.h"
#include "ui/pagePanel.h"
#include "ui/palette.h"

static constexpr float welcomeHeight = 18.0f, dropCapHeight = 59.6f;

static const juce::Rectangle<int> panelBounds (24, 116, 652, 272), ruleBounds (44, 208, 612, 1);
static constexpr float ruleAlpha = 0.6f;

// The left edge of the texts and the line of the headline, in the page: whole pixels at all usual scales.
static constexpr int textLeft = 44, headlineY = 176;

/** What the welcome label has in front of the word that the initial begins: the blanks leave room for that. */
static constexpr auto beforeWord = ".      ";

/** From where to where a text leaves ink when it begins at 0. */
static juce::Range<float> inkOf (const juce::Font& font, const juce::String& text)
{
    juce::GlyphArrangement glyphs;
    juce::Path path;
    glyphs.addLineOfText (font, text, 0.0f, 0.0f);
    glyphs.createPath (path);
    return path.getBounds().getHorizontalRange();
}

store_intro::store_intro (genericlistener& listenerToTell)
    : dropCap (juce::Font (dropCapHeight, juce::Font::bold)),
      welcome (juce::Font (welcomeHeight, juce::Font::bold)),
      content (
          *this,
          { { background, {}, { 0, 0, 700, 500 } },
            { logOnButton, "Log on...", { 275, 415, 150, 24 } },
            { dropCap, "W", { 35, 134, 56, 48 } },
            { body,
              "First you will need to logon to your Dorvik account, or create one if you don't have "
              "one already. It's free and it will be associated with your email address.\n\n"
              "When done, new amps, effects and features will be downloaded to your computer.",
              { 42, 241, 632, 125 } },
            { welcome, beforeWord + juce::String ("elcome to the Dorvik Rigmart."), { 43, 155, 614, 69 } } }),
      focus (*this, logOnButton),
      listener (listenerToTell),
      banner (pageBanner::motif::knobs)
{
    logOnButton.addListener (this);
    welcome.hideFirst (juce::String (beforeWord).length());
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
    body.setBorderSize (
        juce::BorderSize<int> (1, textLeft - 1 - body.getX(), 1, 5)); // most letters begin later

    // The initial fills the room between the left edge and the rest of its word, with a little air.
    constexpr float air = 2.0f;
    const auto welcomeLeft = (float) welcome.getBorderSize().getLeft();
    const auto wordLeft =
        (float) welcome.getX() + welcomeLeft + welcome.getFont().getStringWidthFloat (beforeWord);
    const auto ink = inkOf (dropCap.getFont(), dropCap.getText());
    const auto stretch = juce::jlimit (0.1f, 1.0f, (wordLeft - air - (float) textLeft) / ink.getLength());

    dropCap.standAt ((float) (textLeft - dropCap.getX()) - stretch * ink.getStart(),
                     headlineY - dropCap.getY(), stretch);
    welcome.standAt (welcomeLeft, headlineY - welcome.getY());
}

void store_intro::buttonClicked (juce::Button* button)
{
    if (button == &logOnButton)
        listener.handleMessage ("intro done", {}, {}, {});
}

void store_intro::buttonStateChanged (juce::Button*)
{}
