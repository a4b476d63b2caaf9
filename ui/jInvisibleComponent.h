#pragma once

#include <juce_gui_basics/juce_gui_basics.h>
#include <memory>

class jpseudomodaldialog;

/** The overlay of a dialog: covers the holder, tints what lies behind, casts the dialog's shadow and paints its
    background. A click outside the dialog asks it to close. Owns the dialog.

    What it paints is composed once and redrawn from an image until the overlay's size, the bounds of its children
    or the display's scale change. */
class jInvisibleComponent : public juce::Component,
                            private juce::ComponentListener,
                            private juce::FocusChangeListener
{
public:
    /** In a window of its own the overlay is that window's content, and follows the dialog and its bars in size;
        else it follows the holder, and goes when the holder goes. */
    jInvisibleComponent (jpseudomodaldialog&, juce::Component& holderToCover, bool isInOwnWindow,
                         juce::Colour tint);

    /** Takes the dialog along, and gives the keyboard focus back to what had it before. */
    ~jInvisibleComponent() override;

    /** Lets go of a dialog that is being deleted. */
    void releaseDialog();

    void paint (juce::Graphics&) override;
    void mouseDown (const juce::MouseEvent&) override;
    void childBoundsChanged (juce::Component*) override;
    void parentHierarchyChanged() override;
    void parentSizeChanged() override;
    void lookAndFeelChanged() override;

    /** Tab moves the focus around in the overlay, which holds it itself when no control does; the dialog gets all
        other keys. */
    bool keyPressed (const juce::KeyPress&) override;

    /** Passes the focus on to the control that had it before, or else to the dialog's first: the window manager gives
        it to the window alone. */
    void focusGained (FocusChangeType) override;

    std::unique_ptr<juce::AccessibilityHandler> createAccessibilityHandler() override;

private:
    void componentBeingDeleted (juce::Component&) override;
    void globalFocusChanged (juce::Component*) override;
    juce::Rectangle<int> pictureBounds (float scale) const;
    void compose (float scale);
    void renderBackground();
    void dropPictures();

    std::unique_ptr<jpseudomodaldialog> dialog;
    juce::Component::SafePointer<juce::Component> holder;
    bool ownWindow;
    juce::Colour tintColour;
    juce::Image composed, tintLayer; // in physical pixels
    juce::Image background;
    juce::Rectangle<int> shadowed; // all children and a frame
    juce::Array<int> path;         // child indices from the top-level component down to this one
    float composedScale = 0.0f;
    juce::Component::SafePointer<juce::Component> focusedBefore, lastFocused; // outside and inside

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (jInvisibleComponent)
};
