#pragma once

#include "ui/dialogFocus.h"
#include <memory>

class jpseudomodaldialog;

/** The overlay of a dialog: covers the holder, tints what lies behind, casts the dialog's shadow and paints its
    background. It swallows what the mouse does outside the dialog; a click there asks the dialog to close. Owns the
    dialog, and takes the dialog's own window along when it is deleted by itself.

    What it paints is composed once and redrawn from an image until the overlay's size, the bounds of its children
    or the display's scale change. */
class jInvisibleComponent : public juce::Component, private juce::ComponentListener
{
public:
    /** In a window of its own the overlay is that window's content, and the window follows the dialog and its bars
        in size; where the window is given another size, the dialog stays in its middle. In a holder the overlay
        follows the holder, and goes when the holder goes. */
    jInvisibleComponent (jpseudomodaldialog&, juce::Component& holderToCover, bool isInOwnWindow,
                         juce::Colour tint);

    /** Takes the dialog along, and gives the keyboard focus back to what had it before. */
    ~jInvisibleComponent() override;

    /** Lets go of a dialog that is being deleted. */
    void releaseDialog();

    void paint (juce::Graphics&) override;
    void resized() override;
    void mouseDown (const juce::MouseEvent&) override;
    void mouseWheelMove (const juce::MouseEvent&, const juce::MouseWheelDetails&) override;
    void mouseMagnify (const juce::MouseEvent&, float scaleFactor) override;
    void childBoundsChanged (juce::Component*) override;
    void parentHierarchyChanged() override;
    void parentSizeChanged() override;
    void lookAndFeelChanged() override;

    /** Tab moves the focus around in the overlay, which holds it itself when no control does; the dialog gets all
        other keys. */
    bool keyPressed (const juce::KeyPress&) override;

    /** Passes the focus on: the window manager gives it to the window alone. */
    void focusGained (FocusChangeType) override;

    std::unique_ptr<juce::AccessibilityHandler> createAccessibilityHandler() override;

private:
    void componentBeingDeleted (juce::Component&) override;
    juce::Rectangle<int> pictureBounds (float scale) const;
    void compose (float scale);
    void composeSurroundings (juce::Graphics&);
    void renderBackground (juce::Rectangle<int> area);
    void dropPictures();
    void centreDialog();

    std::unique_ptr<jpseudomodaldialog> dialog;
    juce::Component::SafePointer<juce::Component> holder;
    bool ownWindow;
    juce::Colour tintColour;
    juce::Image composed, tintLayer; // in physical pixels
    juce::Image background;
    juce::Rectangle<int> shadowed; // all children and a frame
    juce::Array<int> path;         // child indices from the top-level component down to this one
    float composedScale = 0.0f;
    juce::Component::SafePointer<juce::Component> focusedBefore; // outside
    dialogFocus focus;

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (jInvisibleComponent)
};
