#include "ui/lookAndFeelKlangora.h"
#include "app/installationPaths.h"
#include "ui/palette.h"
#include "ui/pictureDecoder.h"

static constexpr auto skinName = "generic_background.jpg";

static constexpr struct
{
    int id;
    juce::uint32 argb;
} skinColours[] = {
    { juce::TextButton::buttonColourId, palette::body },
    { juce::TextButton::buttonOnColourId, 0xff6e5a3c },
    { juce::TextButton::textColourOnId, palette::text },
    { juce::TextButton::textColourOffId, palette::text },

    { juce::ToggleButton::textColourId, palette::text },
    { juce::ToggleButton::tickColourId, palette::accent },
    { juce::ToggleButton::tickDisabledColourId, 0xff8d8c88 },

    { juce::Label::textColourId, palette::text },
    { juce::Label::textWhenEditingColourId, palette::text },

    { juce::TextEditor::backgroundColourId, palette::sunken },
    { juce::TextEditor::textColourId, palette::text },
    { juce::TextEditor::highlightColourId, palette::selection },
    { juce::TextEditor::highlightedTextColourId, palette::brightText },
    { juce::TextEditor::outlineColourId, palette::edge },
    { juce::TextEditor::focusedOutlineColourId, palette::accent },
    { juce::CaretComponent::caretColourId, palette::accent },

    { juce::GroupComponent::outlineColourId, palette::faintLine },
    { juce::GroupComponent::textColourId, palette::text },

    { juce::ComboBox::backgroundColourId, palette::body },
    { juce::ComboBox::buttonColourId, palette::body },
    { juce::ComboBox::textColourId, palette::text },
    { juce::ComboBox::arrowColourId, palette::text },
    { juce::ComboBox::outlineColourId, palette::edge },
    { juce::ComboBox::focusedOutlineColourId, palette::accent },

    { juce::PopupMenu::backgroundColourId, palette::panel },
    { juce::PopupMenu::textColourId, palette::text },
    { juce::PopupMenu::headerTextColourId, palette::quietText },
    { juce::PopupMenu::highlightedBackgroundColourId, 0x40ffffff },
    { juce::PopupMenu::highlightedTextColourId, palette::brightText },

    { juce::AlertWindow::backgroundColourId, palette::panel },
    { juce::AlertWindow::textColourId, palette::text },
    { juce::AlertWindow::outlineColourId, 0x88ffffff },

    { juce::TooltipWindow::backgroundColourId, palette::panel },
    { juce::TooltipWindow::textColourId, palette::text },
    { juce::TooltipWindow::outlineColourId, palette::hairline },

    { juce::Slider::trackColourId, 0x99000000 },
    { juce::Slider::thumbColourId, 0xff636a76 },
    { juce::Slider::rotarySliderFillColourId, palette::accent },
    { juce::Slider::rotarySliderOutlineColourId, palette::hairline },
    { juce::Slider::textBoxTextColourId, palette::text },
    { juce::Slider::textBoxBackgroundColourId, palette::well },
    { juce::Slider::textBoxHighlightColourId, palette::selection },
    { juce::Slider::textBoxOutlineColourId, palette::hairline },

    { juce::ScrollBar::trackColourId, palette::well },
    { juce::ScrollBar::thumbColourId, 0x80ffffff },

    { juce::ListBox::backgroundColourId, palette::well },
    { juce::ListBox::outlineColourId, palette::hairline },
    { juce::ListBox::textColourId, palette::text },
    { juce::TreeView::linesColourId, palette::hairline },
    { juce::TreeView::selectedItemBackgroundColourId, palette::selection },

    { juce::DirectoryContentsDisplayComponent::highlightColourId, palette::selection },
    { juce::DirectoryContentsDisplayComponent::textColourId, palette::text },
    { juce::DirectoryContentsDisplayComponent::highlightedTextColourId, palette::brightText },
    { juce::FileBrowserComponent::currentPathBoxBackgroundColourId, palette::body },
    { juce::FileBrowserComponent::currentPathBoxTextColourId, palette::text },
    { juce::FileBrowserComponent::currentPathBoxArrowColourId, palette::text },
    { juce::FileBrowserComponent::filenameBoxBackgroundColourId, palette::sunken },
    { juce::FileBrowserComponent::filenameBoxTextColourId, palette::text },
    { juce::FileChooserDialogBox::titleTextColourId, palette::text },

    { juce::ProgressBar::backgroundColourId, palette::well },
    { juce::ProgressBar::foregroundColourId, palette::accent },
    { juce::HyperlinkButton::textColourId, palette::accent },
    { juce::BubbleComponent::backgroundColourId, palette::panel },
    { juce::BubbleComponent::outlineColourId, palette::hairline },
    { juce::ResizableWindow::backgroundColourId, palette::dark },
    { juce::DocumentWindow::textColourId, palette::text },
};

namespace
{
/** Owns the installed look and feel until the framework ends. The desktop refers to it weakly. */
struct installedLook : juce::DeletedAtShutdown
{
    lookAndFeelKlangora look;
};
}

lookAndFeelKlangora::lookAndFeelKlangora()
    : baseColour (palette::body)
{
    for (auto& colour : skinColours)
        setColour (colour.id, juce::Colour (colour.argb));
}

void lookAndFeelKlangora::install()
{
    // What is deleted at shutdown goes in the reverse order of its making: the look and feel before the desktop.
    juce::Desktop::getInstance();

    if (dynamic_cast<lookAndFeelKlangora*> (&getDefaultLookAndFeel()) == nullptr)
        setDefaultLookAndFeel (&(new installedLook())->look);
}

juce::Image lookAndFeelKlangora::loadPicture (const jSimpleArchive& source, const juce::String& name)
{
    auto file = name;

    if (! file.endsWith (".png") && ! file.endsWith (".jpg"))
    {
        for (auto* extension : { ".jpg", ".png" })
        {
            if (source.contains (name + extension))
            {
                file = name + extension;
                break;
            }
        }
    }

    const auto stream = source.createInputStreamFor (file, largestPictureFile + 1);
    const auto picture = stream != nullptr ? decodePicture (*stream) : juce::Image();
    return picture.convertedToFormat (juce::Image::ARGB);
}

juce::Image lookAndFeelKlangora::getSkinBackground()
{
    if (guiDataSource != nullptr && (reloadSkinBackground || skinBackground.isNull()))
        skinBackground = loadPicture (*guiDataSource, skinName);

    return skinBackground;
}

void lookAndFeelKlangora::paintBackground (juce::Graphics& g, const juce::Component* component, int width,
                                           int height, bool shadeBottomEdge)
{
    const juce::Colour shade (0x55000000);
    g.setColour (juce::Colour (palette::dark));
    g.fillRect (0, 0, width, height);

    if (const auto picture = getSkinBackground(); picture.isValid())
    {
        // The picture hangs from the top of the window. Where it would end too early it is pulled down.
        const auto top =
            component == nullptr
                ? 0
                : component->getTopLevelComponent()->getLocalPoint (component, juce::Point<int>()).y;
        const auto y = juce::jmin (0, juce::jmax (-top, height - picture.getHeight()));

        g.setOpacity (1.0f);
        g.drawImageAt (picture, width / 2 - picture.getWidth() / 2, y);
    }

    if (shadeBottomEdge)
    {
        g.setColour (shade);
        g.fillRect (0, height - 2, width, 2);
        g.fillRect (0, height - 1, width, 1);
    }
}

void lookAndFeelKlangora::renderDialogBackground (juce::Image& image, const juce::Component& component,
                                                  int width, int height, bool shadeBottomEdge)
{
    width = juce::jmax (1, width);
    height = juce::jmax (1, height);

    if (image.getFormat() != juce::Image::ARGB || image.getBounds() != juce::Rectangle<int> (width, height))
        image = juce::Image (juce::Image::ARGB, width, height, true);

    juce::Graphics g (image);
    paintBackground (g, &component, width, height, shadeBottomEdge);
}

void lookAndFeelKlangora::drawFocusRing (juce::Graphics& g, const juce::Component& component,
                                         juce::Rectangle<float> area, float cornerSize)
{
    constexpr float thickness = 2.0f;

    if (component.hasKeyboardFocus (true))
    {
        g.setColour (component.findColour (juce::TextEditor::focusedOutlineColourId));
        g.drawRoundedRectangle (area.reduced (0.5f * thickness), cornerSize, thickness);
    }
}
