#include "ui/dialogWindow.h"
#include "assets.h"
#include "ui/jpseudomodaldialog.h"

static constexpr int firstSize = 500;

dialogWindow::dialogWindow (jpseudomodaldialog& dialogToShow, const juce::String& title, bool hasShadow)
    : DocumentWindow (title, juce::Colours::white, 0, false),
      dialog (dialogToShow)
{
    setWantsKeyboardFocus (false); // the content takes it
    setTitleBarHeight (0);
    setDropShadowEnabled (hasShadow);
    addToDesktop();

    const auto* display = juce::Desktop::getInstance().getDisplays().getPrimaryDisplay();
    setBounds (juce::Rectangle<int> (firstSize, firstSize)
               + (display->userArea.getCentre() - juce::Point<int> (firstSize / 2, firstSize / 2)));

#if JUCE_WINDOWS // where the icon comes with the program file, drawn for each size
    repaints.emplace (*this);
#else
    getPeer()->setIcon (juce::ImageCache::getFromMemory (assets::icon256_png, assets::icon256_pngSize));
#endif

    setVisible (true);
}

dialogWindow::~dialogWindow()
{
    clearContentComponent();
}

float dialogWindow::getDesktopScaleFactor() const
{
    return scaleToFit * DocumentWindow::getDesktopScaleFactor();
}

void dialogWindow::closeButtonPressed()
{
    dialog.requestClose();
}

juce::BorderSize<int> dialogWindow::getBorderThickness()
{
    return {};
}

void dialogWindow::childBoundsChanged (juce::Component* child)
{
    if (child->getBounds().isEmpty())
        return;

    const auto area = getParentMonitorArea().toFloat();
    scaleToFit = juce::jmin (1.0f, area.getWidth() / (float) child->getWidth(),
                             area.getHeight() / (float) child->getHeight());
    DocumentWindow::childBoundsChanged (child);

    const auto reachable = (area / scaleToFit).toNearestInt();
    setTopLeftPosition (getBounds().constrainedWithin (reachable).getPosition());
}
