#include "ui/SliderLabelCompKlangora.h"
#include "ui/drawShadedBody.h"
#include "ui/imageOperations.h"
#include "ui/lookAndFeelKlangora.h"
#include <cmath>

static constexpr float bodyAlpha = 0.7f, hoverBrightness = 1.5f, disabledAlpha = 0.5f;

static void drawBody (juce::Graphics& g, juce::Rectangle<float> area, juce::Colour colour, bool highlighted,
                      bool down)
{
    drawShadedBody (g, area, colour, 1.0f, -100.0f, 1.0f, highlighted, down);
}

static juce::Colour scaledBrightness (juce::Colour colour, float factor)
{
    return colour.withMultipliedBrightness (juce::jmax (0.0f, factor));
}

static juce::Font boldFont (float componentHeight)
{
    return { 0.5f + 0.5f * componentHeight, juce::Font::bold };
}

/** The sheet of paper, or the folder, of a file row. */
static juce::Path fileShape (juce::Rectangle<float> area, bool isDirectory)
{
    juce::Path shape;

    if (isDirectory)
    {
        area = area.withSizeKeepingCentre (area.getHeight(), 0.76f * area.getHeight());
        shape.addRoundedRectangle (area.withTrimmedTop (0.18f * area.getHeight()), 1.5f);
        shape.addRoundedRectangle (
            area.withWidth (0.45f * area.getWidth()).withHeight (0.5f * area.getHeight()), 1.5f);
    }
    else
    {
        area = area.withSizeKeepingCentre (0.74f * area.getHeight(), area.getHeight());
        const auto fold = 0.36f * area.getWidth();
        shape.startNewSubPath (area.getTopLeft());
        shape.lineTo (area.getRight() - fold, area.getY());
        shape.lineTo (area.getRight(), area.getY() + fold);
        shape.lineTo (area.getBottomRight());
        shape.lineTo (area.getBottomLeft());
        shape.closeSubPath();
    }

    return shape;
}

bool lookAndFeelKlangora::areScrollbarButtonsVisible()
{
    return false;
}

int lookAndFeelKlangora::getDefaultScrollbarWidth()
{
    return 12;
}

void lookAndFeelKlangora::drawScrollbar (juce::Graphics& g, juce::ScrollBar& bar, int x, int y, int width,
                                         int height, bool isVertical, int thumbStart, int thumbSize,
                                         bool isMouseOver, bool isMouseDown)
{
    const auto track = juce::Rectangle<int> (x, y, width, height).toFloat();
    const auto round = 0.5f * juce::jmin (track.getWidth(), track.getHeight());

    g.setColour (bar.findColour (juce::ScrollBar::trackColourId));
    g.fillRoundedRectangle (track, round);

    if (thumbSize <= 0)
        return;

    const auto thumb = isVertical ? track.withY ((float) thumbStart).withHeight ((float) thumbSize)
                                  : track.withX ((float) thumbStart).withWidth ((float) thumbSize);
    const auto alpha = isMouseDown ? 1.8f : (isMouseOver ? 1.4f : 1.0f);

    g.setColour (bar.findColour (juce::ScrollBar::thumbColourId).withMultipliedAlpha (alpha));
    g.fillRoundedRectangle (thumb.reduced (2.0f), round - 2.0f);
}

void lookAndFeelKlangora::drawButtonBackground (juce::Graphics& g, juce::Button& button,
                                                const juce::Colour& backgroundColour, bool highlighted,
                                                bool down)
{
    const auto area = button.getLocalBounds().toFloat();
    const auto colour = highlighted ? scaledBrightness (backgroundColour, hoverBrightness) : backgroundColour;
    const auto alpha = button.isEnabled() ? 1.0f : disabledAlpha;

    drawBody (g, area, colour.withMultipliedAlpha (bodyAlpha * alpha), highlighted, down);
    drawFocusRing (g, button, area);
}

void lookAndFeelKlangora::drawButtonText (juce::Graphics& g, juce::TextButton& button, bool, bool down)
{
    const auto pushedDown = down ? 1 : 0;
    g.setFont (boldFont ((float) button.getHeight()));
    g.setColour (button.findColour (juce::TextButton::textColourOnId)
                     .withMultipliedAlpha (button.isEnabled() ? 1.0f : disabledAlpha));
    g.drawFittedText (button.getButtonText(), 8, 4 + pushedDown, button.getWidth() - 16,
                      button.getHeight() - 8, juce::Justification::centred, 1);
}

void lookAndFeelKlangora::drawTickBox (juce::Graphics& g, juce::Component& component, float x, float y,
                                       float width, float height, bool ticked, bool isEnabled,
                                       bool highlighted, bool down)
{
    constexpr float corner = 3.0f, outline = 1.0f;
    const juce::Rectangle<float> box (x, y, width, height);
    const auto alpha = isEnabled ? 1.0f : disabledAlpha;

    g.setColour (juce::Colours::black.withAlpha ((down ? 0.75f : 0.5f) * alpha));
    g.fillRoundedRectangle (box, corner);
    g.setColour (juce::Colours::white.withAlpha ((highlighted ? 0.85f : 0.5f) * alpha));
    g.drawRoundedRectangle (box.reduced (0.5f * outline), corner, outline);

    if (ticked)
    {
        juce::Path tick;
        tick.startNewSubPath (x + 0.24f * width, y + 0.52f * height);
        tick.lineTo (x + 0.43f * width, y + 0.72f * height);
        tick.lineTo (x + 0.77f * width, y + 0.28f * height);

        g.setColour (component.findColour (isEnabled ? juce::ToggleButton::tickColourId
                                                     : juce::ToggleButton::tickDisabledColourId));
        g.strokePath (tick, { 0.14f * width, juce::PathStrokeType::mitered, juce::PathStrokeType::rounded });
    }
}

void lookAndFeelKlangora::drawToggleButton (juce::Graphics& g, juce::ToggleButton& button, bool highlighted,
                                            bool down)
{
    constexpr int indent = 8, gap = 6;
    const auto area = button.getLocalBounds();
    const auto fontHeight = juce::jmin (15.0f, 0.75f * (float) area.getHeight());
    const auto boxSize = juce::jmin (16, area.getHeight() - 4);
    const auto boxTop = (area.getHeight() - boxSize) / 2;

    drawTickBox (g, button, (float) indent, (float) boxTop, (float) boxSize, (float) boxSize,
                 button.getToggleState(), button.isEnabled(), highlighted, down);

    g.setColour (button.findColour (juce::ToggleButton::textColourId)
                     .withMultipliedAlpha (button.isEnabled() ? 1.0f : disabledAlpha));
    g.setFont (fontHeight);
    g.drawFittedText (
        button.getButtonText(), area.withTrimmedLeft (indent + boxSize + gap).withTrimmedRight (2),
        juce::Justification::centredLeft, juce::jmax (1, (int) ((float) area.getHeight() / fontHeight)));

    drawFocusRing (g, button, area.toFloat());
}

void lookAndFeelKlangora::fillTextEditorBackground (juce::Graphics& g, int, int, juce::TextEditor& editor)
{
    const auto colour = editor.findColour (juce::TextEditor::backgroundColourId);

    if (colour.isTransparent())
        return;

    const auto centreColour = scaledBrightness (colour, 3.0f);

    if (const auto* parent = editor.getParentComponent())
    {
        // The light falls from above the page, so that editors further down come out darker.
        const auto parentHeight = (float) parent->getHeight();
        const auto edgeColour = scaledBrightness (colour, 0.7f * std::sqrt (parentHeight / 250.0f) + 1.5f);
        const juce::Point<float> centre (0.5f * (float) parent->getWidth() - (float) editor.getX(),
                                         (float) (-editor.getY() - 40) / 3.0f);
        const juce::Point<float> edge (centre.x, parentHeight - (float) editor.getY());
        g.setGradientFill ({ centreColour, centre, edgeColour, edge, true });
    }
    else
    {
        g.setColour (centreColour);
    }

    g.fillAll();
}

void lookAndFeelKlangora::drawFileBrowserRow (juce::Graphics& g, int width, int height, const juce::File&,
                                              const juce::String& name, juce::Image* icon,
                                              const juce::String& size, const juce::String& time,
                                              bool isDirectory, bool isSelected, int index,
                                              juce::DirectoryContentsDisplayComponent& display)
{
    using ids = juce::DirectoryContentsDisplayComponent;
    constexpr int iconSpace = 32, gap = 8, widthWithDetails = 450;
    const auto* list = dynamic_cast<juce::Component*> (&display);
    const auto colour = [&] (int id) { return list != nullptr ? list->findColour (id) : findColour (id); };
    const auto highlight = colour (ids::highlightColourId);
    const auto textColour = colour (isSelected ? ids::highlightedTextColourId : ids::textColourId);
    juce::Rectangle<int> row (width, height);

    if (isSelected)
        g.fillAll (highlight);
    else if (index % 2 != 0)
        g.fillAll (juce::Colour (0x0cffffff));

    const auto iconArea = row.removeFromLeft (iconSpace).reduced (4, 3);

    if (icon != nullptr && icon->isValid())
    {
        auto picture = icon->convertedToFormat (juce::Image::ARGB);

        if (isSelected)
        {
            picture.duplicateIfShared();
            tintImage (picture, highlight);
        }

        g.setOpacity (1.0f);
        g.drawImage (picture, iconArea.toFloat(),
                     juce::RectanglePlacement::centred | juce::RectanglePlacement::onlyReduceInSize);
    }
    else
    {
        g.setColour (textColour.withMultipliedAlpha (isDirectory ? 0.9f : 0.6f));
        g.fillPath (fileShape (iconArea.toFloat(), isDirectory));
    }

    if (width > widthWithDetails && ! isDirectory)
    {
        g.setFont (0.6f * (float) height);
        g.setColour (textColour.withMultipliedAlpha (0.8f));
        row.removeFromRight (gap);
        g.drawFittedText (time, row.removeFromRight (width / 5), juce::Justification::centredRight, 1);
        row.removeFromRight (gap);
        g.drawFittedText (size, row.removeFromRight (width / 10), juce::Justification::centredRight, 1);
    }

    g.setFont (0.7f * (float) height);
    g.setColour (textColour);
    g.drawText (name, row.withTrimmedRight (gap), juce::Justification::centredLeft, true);
}

juce::Button* lookAndFeelKlangora::createFileBrowserGoUpButton()
{
    juce::Path arrow;
    arrow.addArrow ({ 50.0f, 100.0f, 50.0f, 0.0f }, 26.0f, 84.0f, 50.0f);

    juce::DrawablePath picture;
    picture.setFill (findColour (juce::ComboBox::arrowColourId));
    picture.setPath (arrow);

    auto* button = new juce::DrawableButton ("up", juce::DrawableButton::ImageOnButtonBackground);
    button->setImages (&picture);
    return button;
}

void lookAndFeelKlangora::drawComboBox (juce::Graphics& g, int width, int height, bool isButtonDown,
                                        int buttonX, int buttonY, int buttonWidth, int buttonHeight,
                                        juce::ComboBox& box)
{
    // Boxes lower on a page come out darker.
    const auto* parent = box.getParentComponent();
    const auto depth = parent != nullptr && parent->getHeight() > 0
                           ? (float) box.getY() / (float) parent->getHeight()
                           : 0.0f;
    const juce::Rectangle<float> area ((float) width, (float) height);

    drawBody (g, area, scaledBrightness (baseColour.withAlpha (bodyAlpha), 1.5f - depth),
              box.isEnabled() && box.isMouseOver (true), isButtonDown);

    constexpr float arrowWidth = 8.0f, arrowHeight = 4.0f, arrowThickness = 1.6f;
    const auto arrowArea = juce::Rectangle<int> (buttonX, buttonY, buttonWidth, buttonHeight)
                               .toFloat()
                               .withSizeKeepingCentre (arrowWidth, arrowHeight);
    juce::Path arrow;
    arrow.startNewSubPath (arrowArea.getTopLeft());
    arrow.lineTo (arrowArea.getCentreX(), arrowArea.getBottom());
    arrow.lineTo (arrowArea.getTopRight());
    g.setColour (box.findColour (juce::ComboBox::arrowColourId)
                     .withMultipliedAlpha (box.isEnabled() ? 1.0f : disabledAlpha));
    g.strokePath (arrow, { arrowThickness, juce::PathStrokeType::mitered, juce::PathStrokeType::rounded });

    drawFocusRing (g, box, area);
}

juce::Font lookAndFeelKlangora::getComboBoxFont (juce::ComboBox& box)
{
    return boldFont ((float) box.getHeight());
}

void lookAndFeelKlangora::drawLinearSliderThumb (juce::Graphics& g, int x, int y, int width, int height,
                                                 float position, float minimumPosition, float maximumPosition,
                                                 juce::Slider::SliderStyle style, juce::Slider& slider)
{
    const auto radius = (float) (getSliderThumbRadius (slider) - 2);
    const auto isActive = slider.isEnabled() && slider.isMouseOverOrDragging();
    const auto middle =
        juce::Rectangle<int> (x, y, width, height).toFloat().getCentre(); // of the track, across it
    auto colour = slider.findColour (juce::Slider::thumbColourId)
                      .withMultipliedAlpha (slider.isEnabled() ? 1.0f : disabledAlpha);

    if (isActive)
        colour = scaledBrightness (colour, hoverBrightness);

    const auto drawKnob = [&] (float along, float share) {
        const auto centre = slider.isHorizontal() ? middle.withX (along) : middle.withY (along);
        const auto knob =
            juce::Rectangle<float> (2.0f * radius * share, 2.0f * radius * share).withCentre (centre);

        drawShadedBody (g, knob, colour, 1.0f, radius * share, 1.0f, isActive, slider.isMouseButtonDown());
        drawFocusRing (g, slider, knob.expanded (2.0f), radius * share + 2.0f);
    };

    constexpr float endKnobShare = 0.8f;
    const auto hasTwo = style == juce::Slider::TwoValueHorizontal || style == juce::Slider::TwoValueVertical;
    const auto hasThree =
        style == juce::Slider::ThreeValueHorizontal || style == juce::Slider::ThreeValueVertical;

    if (hasTwo || hasThree)
    {
        drawKnob (minimumPosition, endKnobShare);
        drawKnob (maximumPosition, endKnobShare);
    }

    if (! hasTwo)
        drawKnob (position, 1.0f);
}

juce::Label* lookAndFeelKlangora::createSliderTextBox (juce::Slider& slider)
{
    const auto isBar = slider.isBar();
    const auto text = slider.findColour (juce::Slider::textBoxTextColourId);
    const auto background = slider.findColour (juce::Slider::textBoxBackgroundColourId);
    const auto outline = slider.findColour (juce::Slider::textBoxOutlineColourId);
    auto* label = new SliderLabelCompKlangora();

    label->setJustificationType (juce::Justification::centred);
    label->setKeyboardType (juce::TextInputTarget::decimalKeyboard);
    label->setColour (juce::Label::textColourId, text);
    label->setColour (juce::Label::backgroundColourId, isBar ? juce::Colours::transparentBlack : background);
    label->setColour (juce::Label::outlineColourId, outline);
    label->setColour (juce::TextEditor::textColourId, text);
    label->setColour (juce::TextEditor::backgroundColourId, background);
    label->setColour (juce::TextEditor::outlineColourId, outline);
    label->setColour (juce::TextEditor::highlightColourId,
                      slider.findColour (juce::Slider::textBoxHighlightColourId));
    return label;
}
