#pragma once

#include <array>
#include <juce_gui_basics/juce_gui_basics.h>

class jpseudomodaldialog;

/** The bar below a dialog: one to three buttons side by side, painted by the bar. They can be focused, and
    pressed with Return or Space. */
class jpseudomodaldialogbuttonbar : public juce::Component
{
public:
    struct button
    {
        juce::String label, result;
    };

    using buttons = std::array<button, 3>;

    /** There are three buttons when the third has a label, else two when the second has one, else one. */
    jpseudomodaldialogbuttonbar (jpseudomodaldialog&, const buttons&);
    ~jpseudomodaldialogbuttonbar() override;

    void paint (juce::Graphics&) override;
    void resized() override;
    void mouseMove (const juce::MouseEvent&) override;
    void mouseExit (const juce::MouseEvent&) override;
    void mouseDown (const juce::MouseEvent&) override;

private:
    class focusArea;

    /** Where a button is painted. */
    juce::Rectangle<int> areaOf (int index) const;

    /** The buttons that light up and that are pressed at an x: of three, their borders differ by a pixel. Hovering
        may be over none, -1. */
    int hoveredAt (int x) const;
    int pressedAt (int x) const;

    /** The dialog, and with it this, may be gone on return. */
    void press (int index);

    jpseudomodaldialog& dialog;
    buttons shown;
    int count;
    int hovered = -1;
    std::array<std::unique_ptr<focusArea>, 3> focusAreas; // one for each button that is shown

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (jpseudomodaldialogbuttonbar)
};
