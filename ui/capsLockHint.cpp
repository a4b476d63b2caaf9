#include "ui/capsLockHint.h"
#include "ui/capsLock.h"
#include "ui/palette.h"
#include <algorithm>
#include <utility>

static constexpr int lineHeight = 20, lookEveryMs = 200; // no event tells of the key
static constexpr float fontHeight = 13.0f;

static juce::Rectangle<int> areaAbove (const juce::Component& field)
{
    return field.getBounds().withY (field.getY() - lineHeight).withHeight (lineHeight);
}

capsLockHint::capsLockHint (juce::Component& pageOfFields, std::vector<juce::Component*> passwordFields)
    : page (pageOfFields),
      fields (std::move (passwordFields))
{
    juce::Desktop::getInstance().addFocusChangeListener (this);
}

capsLockHint::~capsLockHint()
{
    juce::Desktop::getInstance().removeFocusChangeListener (this);
}

void capsLockHint::paint (juce::Graphics& g) const
{
    if (toldAt == nullptr)
        return;

    g.setFont (juce::Font (fontHeight));
    g.setColour (juce::Colour (palette::accent));
    g.drawText ("Caps Lock is on", areaAbove (*toldAt), juce::Justification::centredRight, false);
}

void capsLockHint::globalFocusChanged (juce::Component* focused)
{
    focusedField = std::find (fields.begin(), fields.end(), focused) != fields.end() ? focused : nullptr;
    timerCallback();

    if (focusedField != nullptr)
        startTimer (lookEveryMs);
    else
        stopTimer();
}

void capsLockHint::timerCallback()
{
    tellAt (focusedField != nullptr && isCapsLockOn() ? focusedField : nullptr);
}

void capsLockHint::tellAt (juce::Component* field)
{
    for (auto* changed : { std::exchange (toldAt, field), field })
        if (changed != nullptr)
            page.repaint (areaAbove (*changed));
}
