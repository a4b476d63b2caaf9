#include "ui/jpseudomodaldialogbuttonbar.h"
#include "ui/jpseudomodaldialog.h"
#include "ui/lookAndFeelKlangora.h"

static const juce::Colour shadeAtTop (0x33000000), shadeAtBottom (0x00000000), hoverShade (0x55000000);
static constexpr float fontShare = 0.7f, fontStretch = 0.8f, restingAlpha = 0.66f;

/** Gives a painted button the keyboard focus and a place for assistive technology; the mouse passes through. */
class jpseudomodaldialogbuttonbar::focusArea : public juce::Component
{
public:
    focusArea (jpseudomodaldialogbuttonbar& barOfButton, int indexInBar)
        : bar (barOfButton),
          index (indexInBar)
    {
        setTitle (bar.shown[(size_t) index].label);
        setWantsKeyboardFocus (true);
        setInterceptsMouseClicks (false, false);
    }

private:
    void paint (juce::Graphics& g) override
    {
        lookAndFeelKlangora::drawFocusRing (g, *this, getLocalBounds().toFloat());
    }

    void focusGained (FocusChangeType) override
    {
        wasHeldBefore = isPressingKeyDown();
        repaint();
    }

    void focusLost (FocusChangeType) override { repaint(); }

    bool keyPressed (const juce::KeyPress& key) override
    {
        // With any modifiers: after a window closed on Alt and F4, Alt may still seem to be held.
        if (! key.isKeyCode (juce::KeyPress::returnKey) && ! key.isKeyCode (juce::KeyPress::spaceKey))
            return false;

        if (! wasHeldBefore)
            bar.press (index);

        return true;
    }

    bool keyStateChanged (bool) override
    {
        wasHeldBefore = wasHeldBefore && isPressingKeyDown();
        return false;
    }

    static bool isPressingKeyDown()
    {
        return juce::KeyPress::isKeyCurrentlyDown (juce::KeyPress::returnKey)
               || juce::KeyPress::isKeyCurrentlyDown (juce::KeyPress::spaceKey);
    }

    std::unique_ptr<juce::AccessibilityHandler> createAccessibilityHandler() override
    {
        // Posted, because pressing may delete the very handler that is called.
        const auto postPress = [area = SafePointer<focusArea> (this)] {
            juce::MessageManager::callAsync ([area] {
                if (area != nullptr)
                    area->bar.press (area->index);
            });
        };

        return std::make_unique<juce::AccessibilityHandler> (
            *this, juce::AccessibilityRole::button,
            juce::AccessibilityActions().addAction (juce::AccessibilityActionType::press, postPress));
    }

    jpseudomodaldialogbuttonbar& bar;
    int index;
    bool wasHeldBefore =
        false; // the key that the focus came with repeats itself: it was meant for what had it before
};

jpseudomodaldialogbuttonbar::jpseudomodaldialogbuttonbar (jpseudomodaldialog& dialogToServe,
                                                          const buttons& buttonsToShow)
    : dialog (dialogToServe),
      shown (buttonsToShow),
      count (shown[2].label.isNotEmpty() ? 3 : (shown[1].label.isNotEmpty() ? 2 : 1))
{
    if (shown[0].label.isEmpty())
        shown[0].label = "DONE";

    for (int i = 0; i < count; ++i)
    {
        auto& area = focusAreas[(size_t) i];
        area = std::make_unique<focusArea> (*this, i);
        addAndMakeVisible (*area);
    }
}

jpseudomodaldialogbuttonbar::~jpseudomodaldialogbuttonbar() = default;

juce::Rectangle<int> jpseudomodaldialogbuttonbar::areaOf (int index) const
{
    const auto width = getWidth();
    return { index * width / count, 0, width / count, getHeight() };
}

int jpseudomodaldialogbuttonbar::hoveredAt (int x) const
{
    const auto width = getWidth();

    if (count == 1)
        return 0;

    if (count == 2)
        return x < width / 2 ? 0 : 1;

    if (x <= width / 3)
        return 0;

    return x <= 2 * width / 3 ? 1 : (x <= width ? 2 : -1);
}

int jpseudomodaldialogbuttonbar::pressedAt (int x) const
{
    const auto width = getWidth();

    if (count == 1)
        return 0;

    if (count == 2)
        return x < width / 2 ? 0 : 1;

    return x >= 2 * width / 3 ? 2 : (x < width / 3 ? 0 : 1);
}

void jpseudomodaldialogbuttonbar::press (int index)
{
    if (count == 1)
        dialog.requestClose();
    else
        dialog.finishDialog ("jControl", shown[(size_t) index].result, {}, {});
}

void jpseudomodaldialogbuttonbar::paint (juce::Graphics& g)
{
    const auto height = (float) getHeight();
    g.setGradientFill (juce::ColourGradient::vertical (shadeAtTop, 0.0f, shadeAtBottom, height));
    g.fillAll();
    g.setFont (juce::Font (fontShare * height, juce::Font::bold).withHorizontalScale (fontStretch));
    const auto textColour = findColour (juce::TextButton::textColourOnId);

    for (int i = 0; i < count; ++i)
    {
        if (i == hovered)
        {
            g.setColour (hoverShade);
            g.fillRect (areaOf (i));
        }

        g.setColour (i == hovered ? textColour : textColour.withMultipliedAlpha (restingAlpha));
        g.drawText (shown[(size_t) i].label, areaOf (i), juce::Justification::centred, true);
    }
}

void jpseudomodaldialogbuttonbar::resized()
{
    for (int i = 0; i < count; ++i)
        focusAreas[(size_t) i]->setBounds (areaOf (i));
}

void jpseudomodaldialogbuttonbar::mouseMove (const juce::MouseEvent& e)
{
    hovered = hoveredAt (e.x);
    repaint();
}

void jpseudomodaldialogbuttonbar::mouseExit (const juce::MouseEvent&)
{
    hovered = -1;
    repaint();
}

void jpseudomodaldialogbuttonbar::mouseDown (const juce::MouseEvent& e)
{
    press (pressedAt (e.x));
}
