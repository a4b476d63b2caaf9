#include "ui/lookAndFeelKlangora.h"
#include "app/installationPaths.h"
#include "ui/imageOperations.h"
#include "ui/pictureDecoder.h"

namespace
{
constexpr auto skinName = "generic_background.jpg";

constexpr juce::uint32 dark = 0xff16181c; // where no picture shows
constexpr juce::uint32 panel = 0xff24272d;
constexpr juce::uint32 body = 0xff4b525d;
constexpr juce::uint32 text = 0xffeeece6;
constexpr juce::uint32 quietText = 0xffb9b8b2;
constexpr juce::uint32 accent = 0xffffb454;
constexpr juce::uint32 selection = 0x66ffb454;
constexpr juce::uint32 sunken = 0xd908090b; // brightened where it is painted
constexpr juce::uint32 hairline = 0x66ffffff;
constexpr juce::uint32 well = 0x66000000; // sunken areas: lists, tracks, text boxes
constexpr juce::uint32 none = 0x00000000;

constexpr struct
{
    int id;
    juce::uint32 argb;
} skinColours[] = {
    { juce::TextButton::buttonColourId, body },
    { juce::TextButton::buttonOnColourId, 0xff6e5a3c },
    { juce::TextButton::textColourOnId, text },
    { juce::TextButton::textColourOffId, text },

    { juce::ToggleButton::textColourId, text },
    { juce::ToggleButton::tickColourId, accent },
    { juce::ToggleButton::tickDisabledColourId, 0xff8d8c88 },

    { juce::Label::textColourId, text },
    { juce::Label::textWhenEditingColourId, text },

    { juce::TextEditor::backgroundColourId, sunken },
    { juce::TextEditor::textColourId, text },
    { juce::TextEditor::highlightColourId, selection },
    { juce::TextEditor::highlightedTextColourId, 0xffffffff },
    { juce::TextEditor::outlineColourId, hairline },
    { juce::TextEditor::focusedOutlineColourId, accent },
    { juce::CaretComponent::caretColourId, accent },

    { juce::GroupComponent::outlineColourId, 0x40ffffff },
    { juce::GroupComponent::textColourId, text },

    { juce::ComboBox::backgroundColourId, body },
    { juce::ComboBox::buttonColourId, body },
    { juce::ComboBox::textColourId, text },
    { juce::ComboBox::arrowColourId, text },
    { juce::ComboBox::outlineColourId, hairline },
    { juce::ComboBox::focusedOutlineColourId, accent },

    { juce::PopupMenu::backgroundColourId, panel },
    { juce::PopupMenu::textColourId, text },
    { juce::PopupMenu::headerTextColourId, quietText },
    { juce::PopupMenu::highlightedBackgroundColourId, 0x40ffffff },
    { juce::PopupMenu::highlightedTextColourId, 0xffffffff },

    { juce::AlertWindow::backgroundColourId, panel },
    { juce::AlertWindow::textColourId, text },
    { juce::AlertWindow::outlineColourId, 0x88ffffff },

    { juce::TooltipWindow::backgroundColourId, panel },
    { juce::TooltipWindow::textColourId, text },
    { juce::TooltipWindow::outlineColourId, hairline },

    { juce::Slider::trackColourId, 0x99000000 },
    { juce::Slider::thumbColourId, 0xff636a76 },
    { juce::Slider::rotarySliderFillColourId, accent },
    { juce::Slider::rotarySliderOutlineColourId, hairline },
    { juce::Slider::textBoxTextColourId, text },
    { juce::Slider::textBoxBackgroundColourId, well },
    { juce::Slider::textBoxHighlightColourId, selection },
    { juce::Slider::textBoxOutlineColourId, hairline },

    { juce::ScrollBar::trackColourId, well },
    { juce::ScrollBar::thumbColourId, 0x80ffffff },

    { juce::ListBox::backgroundColourId, well },
    { juce::ListBox::outlineColourId, hairline },
    { juce::ListBox::textColourId, text },
    { juce::TreeView::linesColourId, hairline },
    { juce::TreeView::selectedItemBackgroundColourId, selection },

    { juce::DirectoryContentsDisplayComponent::highlightColourId, selection },
    { juce::DirectoryContentsDisplayComponent::textColourId, text },
    { juce::DirectoryContentsDisplayComponent::highlightedTextColourId, 0xffffffff },
    { juce::FileBrowserComponent::currentPathBoxBackgroundColourId, body },
    { juce::FileBrowserComponent::currentPathBoxTextColourId, text },
    { juce::FileBrowserComponent::currentPathBoxArrowColourId, text },
    { juce::FileBrowserComponent::filenameBoxBackgroundColourId, sunken },
    { juce::FileBrowserComponent::filenameBoxTextColourId, text },
    { juce::FileChooserDialogBox::titleTextColourId, text },

    { juce::ProgressBar::backgroundColourId, well },
    { juce::ProgressBar::foregroundColourId, accent },
    { juce::HyperlinkButton::textColourId, accent },
    { juce::BubbleComponent::backgroundColourId, panel },
    { juce::BubbleComponent::outlineColourId, hairline },
    { juce::ResizableWindow::backgroundColourId, dark },
    { juce::DocumentWindow::textColourId, text },
};

/** Owns the installed look and feel. The framework deletes the last made first, so this goes before the desktop,
    which refers to it weakly. */
struct installedLook : juce::DeletedAtShutdown
{
    lookAndFeelKlangora look;
};
}

lookAndFeelKlangora::lookAndFeelKlangora()
    : baseColour (body)
{
    for (auto& colour : skinColours)
        setColour (colour.id, juce::Colour (colour.argb));
}

void lookAndFeelKlangora::install()
{
    juce::Desktop::getInstance(); // before the holder, see there

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

    const auto stream = source.createInputStreamFor (file);
    const auto picture = stream != nullptr ? decodePicture (*stream) : juce::Image();
    return picture.convertedToFormat (juce::Image::ARGB);
}

juce::Image lookAndFeelKlangora::getSkinBackground()
{
    if (guiDataSource != nullptr && (reloadSkinBackground || ! wasSkinLoaded))
    {
        skinBackground = loadPicture (*guiDataSource, skinName);
        wasSkinLoaded = true;
    }

    return skinBackground;
}

void lookAndFeelKlangora::paintBackground (juce::Graphics& g, const juce::Component* component, int width,
                                           int height, bool shadeBottomEdge)
{
    const juce::Colour shade (0x55000000);
    g.setColour (juce::Colour (dark));
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
