#pragma once

#include "content/jSimpleArchive.h"
#include <juce_gui_basics/juce_gui_basics.h>

/** The product's skin: translucent black and white over one background picture from the interface data. What it
    does not draw itself is the framework's. Message thread only. */
class lookAndFeelKlangora : public juce::LookAndFeel_V3
{
public:
    /** Sets the colours of every widget: light text on dark, at a contrast of 4.5 to 1 or more. */
    lookAndFeelKlangora();

    /** Makes one of these the default for all components, until the framework ends. Further calls do nothing. */
    static void install();

    /** The background picture, ARGB; null without a source of interface pictures, or without such a picture in it.
        Loaded once, on the first call that finds a source. */
    juce::Image getSkinBackground();

    /** Drops the picture and loads it again on each request, for work on a new skin. */
    bool reloadSkinBackground = false;

    /** Loads a picture as ARGB; null when there is none or it is damaged. A name that does not end with ".jpg" or
        ".png" stands for the file with ".jpg" appended, else for the one with ".png" appended. */
    static juce::Image loadPicture (const jSimpleArchive& source, const juce::String& name);

    /** Paints the background of a dialog into the caller's image, which is made anew unless it is ARGB and of the
        requested size already; a size below 1 counts as 1. The component tells which part of the picture shows:
        areas of one window share one picture. */
    void renderDialogBackground (juce::Image& image, const juce::Component& component, int width, int height,
                                 bool shadeBottomEdge);

    /** Draws the ring that marks the component with the keyboard focus; nothing when it has none. */
    static void drawFocusRing (juce::Graphics&, const juce::Component&, juce::Rectangle<float> area,
                               float cornerSize = 4.0f);

    bool areScrollbarButtonsVisible() override;
    int getDefaultScrollbarWidth() override;
    void drawScrollbar (juce::Graphics&, juce::ScrollBar&, int x, int y, int width, int height,
                        bool isVertical, int thumbStart, int thumbSize, bool isMouseOver,
                        bool isMouseDown) override;

    void drawButtonBackground (juce::Graphics&, juce::Button&, const juce::Colour& backgroundColour,
                               bool highlighted, bool down) override;
    void drawButtonText (juce::Graphics&, juce::TextButton&, bool highlighted, bool down) override;
    void drawToggleButton (juce::Graphics&, juce::ToggleButton&, bool highlighted, bool down) override;
    void drawTickBox (juce::Graphics&, juce::Component&, float x, float y, float width, float height,
                      bool ticked, bool isEnabled, bool highlighted, bool down) override;

    void fillTextEditorBackground (juce::Graphics&, int width, int height, juce::TextEditor&) override;

    void drawFileBrowserRow (juce::Graphics&, int width, int height, const juce::File&,
                             const juce::String& name, juce::Image* icon, const juce::String& size,
                             const juce::String& time, bool isDirectory, bool isSelected, int index,
                             juce::DirectoryContentsDisplayComponent&) override;
    juce::Button* createFileBrowserGoUpButton() override;

    /** Makes a `messageBox`, over the window that is open. */
    juce::AlertWindow* createAlertWindow (const juce::String& title, const juce::String& message,
                                          const juce::String& button1, const juce::String& button2,
                                          const juce::String& button3, juce::MessageBoxIconType,
                                          int numButtons, juce::Component* associatedComponent) override;
    void drawAlertBox (juce::Graphics&, juce::AlertWindow&, const juce::Rectangle<int>& textArea,
                       juce::TextLayout&) override;
    juce::Array<int> getWidthsForTextButtons (juce::AlertWindow&,
                                              const juce::Array<juce::TextButton*>&) override;

    void drawPopupMenuBackground (juce::Graphics&, int width, int height) override;
    void drawPopupMenuItem (juce::Graphics&, const juce::Rectangle<int>& area, bool isSeparator,
                            bool isActive, bool isHighlighted, bool isTicked, bool hasSubMenu,
                            const juce::String& text, const juce::String& shortcutKeyText,
                            const juce::Drawable* icon, const juce::Colour* textColour) override;
    juce::Font getPopupMenuFont() override;

    void drawComboBox (juce::Graphics&, int width, int height, bool isButtonDown, int buttonX, int buttonY,
                       int buttonWidth, int buttonHeight, juce::ComboBox&) override;
    juce::Font getComboBoxFont (juce::ComboBox&) override;

    void drawLinearSliderThumb (juce::Graphics&, int x, int y, int width, int height, float position,
                                float minimumPosition, float maximumPosition, juce::Slider::SliderStyle,
                                juce::Slider&) override;
    juce::Label* createSliderTextBox (juce::Slider&) override;

    juce::Button* createDocumentWindowButton (int type) override;

    juce::Rectangle<int> getTooltipBounds (const juce::String& text, juce::Point<int> mouse,
                                           juce::Rectangle<int> area) override;
    void drawTooltip (juce::Graphics&, const juce::String& text, int width, int height) override;

private:
    class GlassWindowButton;

    void paintBackground (juce::Graphics&, const juce::Component*, int width, int height,
                          bool shadeBottomEdge);

    juce::Image skinBackground;
    juce::Colour baseColour; /**< Of the bodies of buttons and combo boxes. */

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (lookAndFeelKlangora)
};
