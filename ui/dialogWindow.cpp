#include "ui/dialogWindow.h"
#include "ui/jpseudomodaldialog.h"
#include "ui/windowHints.h"

static constexpr int firstSize = 500;
static constexpr int frameOfWindow =
    32; // what some window managers put around a window, wherever it asked to be

dialogWindow::dialogWindow (jpseudomodaldialog& dialogToShow, const juce::String& title, bool hasShadow)
    : DocumentWindow (title, juce::Colours::white, 0, false),
      dialog (&dialogToShow)
{
    setWantsKeyboardFocus (false); // the content takes it
    setTitleBarHeight (0);
    setDropShadowEnabled (hasShadow);
    makeNativeWindow();

    const auto* display = juce::Desktop::getInstance().getDisplays().getPrimaryDisplay();
    setBounds (juce::Rectangle<int> (firstSize, firstSize)
               + (display->userArea.getCentre() - juce::Point<int> (firstSize / 2, firstSize / 2)));
    triggerAsyncUpdate();
}

dialogWindow::~dialogWindow()
{
    clearContentComponent();
}

void dialogWindow::makeNativeWindow()
{
    repaints.reset();
    removeFromDesktop();
    addToDesktop();
    windowHints::setIcon (*this);

#if JUCE_WINDOWS
    repaints.emplace (*this);
#endif
}

void dialogWindow::setContentSize (juce::Rectangle<int> size)
{
    contentSize = size;

    const auto area = getParentMonitorArea().toFloat();
    const auto fitting = [&] (juce::Rectangle<float> room) {
        return juce::jmin (1.0f, room.getWidth() / (float) size.getWidth(),
                           room.getHeight() / (float) size.getHeight());
    };

    scaleToFit = fitting (area) < 1.0f ? fitting (area.reduced (0.625f * frameOfWindow)) : 1.0f;
    setSize (size.getWidth(), size.getHeight());

    const auto reachable = (area / scaleToFit).toNearestInt();
    const auto room = [] (int reached, int used) {
        return juce::jlimit (0, frameOfWindow, (reached - used) / 2);
    };
    const auto place = reachable.reduced (room (reachable.getWidth(), getWidth()),
                                          room (reachable.getHeight(), getHeight()));
    setTopLeftPosition (getBounds().constrainedWithin (place).getPosition());
    handleUpdateNowIfNeeded();
}

void dialogWindow::handleAsyncUpdate()
{
    if (dialog == nullptr)
    {
        delete this;
        return;
    }

#if JUCE_WINDOWS
    // Wine now and then goes back to the first size that a window had, also when it was not seen yet.
    makeNativeWindow();
#endif

    setVisible (true);

    if (auto* content = getContentComponent(); content != nullptr && content->isShowing())
        content->grabKeyboardFocus();
}

void dialogWindow::contentGone()
{
    dialog = nullptr;
    setVisible (false);
    triggerAsyncUpdate();
}

float dialogWindow::getDesktopScaleFactor() const
{
    return scaleToFit * DocumentWindow::getDesktopScaleFactor();
}

void dialogWindow::resized()
{
    auto* content = getContentComponent();

    if (content == nullptr)
        return;

    const auto fitting = contentSize.isEmpty()
                             ? 1.0f
                             : juce::jmin (1.0f, (float) getWidth() / (float) contentSize.getWidth(),
                                           (float) getHeight() / (float) contentSize.getHeight());

    content->setTransform (juce::AffineTransform::scale (fitting));
    content->setBounds ((getLocalBounds().toFloat() / fitting).getSmallestIntegerContainer());
}

void dialogWindow::closeButtonPressed()
{
    if (dialog != nullptr)
        dialog->requestClose();
}

juce::BorderSize<int> dialogWindow::getBorderThickness()
{
    return {};
}

/** The content's size is what the window makes it. */
void dialogWindow::childBoundsChanged (juce::Component*)
{}
