#pragma once

#include "ui/lookAndFeelKlangora.h"

/** A round button of a window's title bar. */
class lookAndFeelKlangora::GlassWindowButton : public juce::Button
{
public:
    /** The shapes are scaled to fit; the second one shows while the button is toggled. */
    GlassWindowButton (const juce::String& name, juce::Colour, const juce::Path& normalShape,
                       const juce::Path& toggledShape);

private:
    void paintButton (juce::Graphics&, bool highlighted, bool down) override;

    juce::Colour colour;
    juce::Path normalShape, toggledShape;

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (GlassWindowButton)
};
