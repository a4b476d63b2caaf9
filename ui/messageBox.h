#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

/** A message box whose text can be read to its end, however long it is: it scrolls, by wheel and by keys, and can be
    selected and copied. Ctrl+C without a selection copies title and text. As wide as its lines need to be of much the
    same length, and never larger than the screen. */
class messageBox : public juce::AlertWindow, private juce::KeyListener
{
public:
    /** Of a longer text the rest is left out, and an ellipsis tells so. */
    static constexpr int longestText = 200000;

    /** With one button, two or three: their results and keys are the framework's. The window is the box's owner, which
        it is centred over and shrinks with. Without one the box shrinks with a screen that is small. */
    messageBox (const juce::String& title, const juce::String& message, const juce::StringArray& buttonLabels,
                juce::MessageBoxIconType, juce::Component* owner);

    /** The text as it is shown. */
    juce::String getText() const { return text.getText(); }

    /** Where the title and the icon are drawn. */
    juce::Rectangle<int> getTitleArea() const;
    juce::Rectangle<int> getIconArea() const;

    bool keyPressed (const juce::KeyPress&) override;
    bool keyStateChanged (bool isKeyDown) override;
    void mouseWheelMove (const juce::MouseEvent&, const juce::MouseWheelDetails&) override;
    float getDesktopScaleFactor() const override;

private:
    struct selectableText : juce::TextEditor
    {
        void addPopupMenuItems (juce::PopupMenu&, const juce::MouseEvent*) override;
    };

    bool keyPressed (const juce::KeyPress&, juce::Component*) override;
    std::vector<juce::TextButton*> getButtons() const;
    void showText (const juce::String&);
    void layOut (juce::Component* owner);
    int heightOfTextAt (int width);
    int widthOfEvenLines (int most);
    bool scroll (const juce::KeyPress&);
    void copy();

    selectableText text;
    float scaleToFit = 1.0f;
    bool
        wasHeldBefore; // a key that answers the box was down when it opened: what it repeats is not for the box

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (messageBox)
};
