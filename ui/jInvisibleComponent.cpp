#include "ui/jInvisibleComponent.h"
#include "ui/childrenUnion.h"
#include "ui/dialogRectTable.h"
#include "ui/dialogWindow.h"
#include "ui/imageOperations.h"
#include "ui/jpseudomodaldialog.h"
#include "ui/lookAndFeelKlangora.h"

static const juce::Colour innerFrame (0x88ffffff), outerFrame (0xaa000000), shadowColour (0x99000000);
static constexpr int shadowRadius = 6, shadowDrop = 4;

jInvisibleComponent::jInvisibleComponent (jpseudomodaldialog& dialogToServe, juce::Component& holderToCover,
                                          bool isInOwnWindow, juce::Colour tint)
    : dialog (&dialogToServe),
      holder (&holderToCover),
      ownWindow (isInOwnWindow),
      tintColour (tint),
      focus (*this)
{
    setWantsKeyboardFocus (true);
    setFocusContainerType (FocusContainerType::keyboardFocusContainer);

    if (! ownWindow)
    {
        focusedBefore = juce::Component::getCurrentlyFocusedComponent();
        holder->addComponentListener (this);
    }
}

jInvisibleComponent::~jInvisibleComponent()
{
    const auto hadFocus = hasKeyboardFocus (true);
    dialogRectTable::remove (*this);

    if (holder != nullptr)
        holder->removeComponentListener (this);

    if (dialog != nullptr)
    {
        dialog->overlay = nullptr;
        dialog.reset();
    }

    if (hadFocus && focusedBefore != nullptr && focusedBefore->isShowing())
        focusedBefore->grabKeyboardFocus();

    if (auto* window = dynamic_cast<dialogWindow*> (holder.getComponent()); window != nullptr && ownWindow)
        window->contentGone();
}

void jInvisibleComponent::releaseDialog()
{
    (void) dialog.release();
}

void jInvisibleComponent::componentBeingDeleted (juce::Component&)
{
    focusedBefore = nullptr;
    delete this;
}

juce::Rectangle<int> jInvisibleComponent::pictureBounds (float scale) const
{
    const auto pixels = [scale] (int size) { return juce::jmax (1, (int) std::ceil ((float) size * scale)); };
    return { pixels (getWidth()), pixels (getHeight()) };
}

void jInvisibleComponent::paint (juce::Graphics& g)
{
    const auto scale = g.getInternalContext().getPhysicalPixelScaleFactor();

    if (composedScale != scale || composed.getBounds() != pictureBounds (scale))
        compose (scale);

    dialogRectTable::record ({ path, this, shadowed });
    g.setOpacity (1.0f);
    g.drawImageTransformed (composed, juce::AffineTransform::scale (1.0f / scale));
}

void jInvisibleComponent::compose (float scale)
{
    const auto bounds = pictureBounds (scale);
    composed = juce::Image (juce::Image::ARGB, bounds.getWidth(), bounds.getHeight(), true);
    composedScale = scale;

    shadowed = childrenUnion (*this, false).expanded (1);

    juce::Graphics g (composed);
    g.addTransform (juce::AffineTransform::scale (scale));

    const auto isCovered = shadowed.contains (getLocalBounds());

    if (! isCovered)
        composeSurroundings (g);

    renderBackground (shadowed);

    // Most of the work, and nothing of it would show below a dialog that fills its window with a solid skin.
    if (isCovered && ! isSolid (background))
        composeSurroundings (g);

    g.setOpacity (1.0f);
    g.drawImageAt (background, shadowed.getX(), shadowed.getY());

    g.setColour (innerFrame);
    g.drawRect (shadowed);
    g.setColour (outerFrame);
    g.drawRect (shadowed.expanded (1));
}

void jInvisibleComponent::composeSurroundings (juce::Graphics& g)
{
    if (tintLayer.getBounds() != composed.getBounds())
        tintLayer = juce::Image (juce::Image::ARGB, composed.getWidth(), composed.getHeight(), true);

    fillImage (tintLayer, tintColour);
    combineOver (composed, tintLayer);

    if (ownWindow && ! shadowed.contains (getLocalBounds())) // a window manager made the window larger
    {
        renderBackground (getLocalBounds());
        g.drawImageAt (background, 0, 0);
    }

    juce::Path outline;
    outline.addRectangle (shadowed);
    juce::DropShadow (shadowColour, shadowRadius, { 0, shadowDrop }).drawForPath (g, outline);
}

void jInvisibleComponent::renderBackground (juce::Rectangle<int> area)
{
    const auto size = area.withZeroOrigin();

    if (auto* look = dynamic_cast<lookAndFeelKlangora*> (&getLookAndFeel()))
    {
        look->renderDialogBackground (background, *this, size.getWidth(), size.getHeight(), true);
        return;
    }

    if (background.getBounds() != size)
        background = juce::Image (juce::Image::ARGB, juce::jmax (1, size.getWidth()),
                                  juce::jmax (1, size.getHeight()), true);

    fillImage (background, findColour (juce::AlertWindow::backgroundColourId));
}

void jInvisibleComponent::dropPictures()
{
    composed = {};
    background = {};
    repaint();
}

void jInvisibleComponent::childBoundsChanged (juce::Component* child)
{
    dropPictures();

    // The bars have followed by the time that the dialog's own change arrives here: the window changes its size
    // once. A resize on the way would reach the window manager too, and may be what it holds on to.
    if (! ownWindow || child != dialog.get())
        return;

    const auto size = childrenUnion (*this, true).withZeroOrigin();

    if (auto* window = dynamic_cast<dialogWindow*> (holder.getComponent());
        window != nullptr && ! size.isEmpty() && size != window->getContentSize())
    {
        window->setContentSize (size);
        centreDialog();
    }
}

void jInvisibleComponent::centreDialog()
{
    const auto bars = 2 * jpseudomodaldialog::barHeight;
    dialog->setTopLeftPosition ((getWidth() - dialog->getWidth()) / 2,
                                (getHeight() - dialog->getHeight() - bars) / 2
                                    + jpseudomodaldialog::barHeight);
}

void jInvisibleComponent::resized()
{
    if (ownWindow && dialog != nullptr && ! dialog->getBounds().isEmpty())
        centreDialog();
}

void jInvisibleComponent::lookAndFeelChanged()
{
    dropPictures();
}

void jInvisibleComponent::parentHierarchyChanged()
{
    path.clearQuick();

    for (auto* child = static_cast<juce::Component*> (this); child->getParentComponent() != nullptr;
         child = child->getParentComponent())
        path.insert (0, child->getParentComponent()->getIndexOfChildComponent (child));
}

void jInvisibleComponent::parentSizeChanged()
{
    if (ownWindow || getParentComponent() == nullptr)
        return;

    const auto oldCentre = getLocalBounds().getCentre();
    setBounds (getParentComponent()->getLocalBounds());
    dialog->setTopLeftPosition (dialog->getPosition() + getLocalBounds().getCentre() - oldCentre);
}

void jInvisibleComponent::mouseDown (const juce::MouseEvent&)
{
    dialog->requestClose();
}

void jInvisibleComponent::mouseWheelMove (const juce::MouseEvent&, const juce::MouseWheelDetails&)
{}

void jInvisibleComponent::mouseMagnify (const juce::MouseEvent&, float)
{}

bool jInvisibleComponent::keyPressed (const juce::KeyPress& key)
{
    if (! key.isKeyCode (juce::KeyPress::tabKey))
        return dialog->keyPressed (key);

    const auto isForwards = ! key.getModifiers().isShiftDown();

    if (auto* focused = getCurrentlyFocusedComponent(); isParentOf (focused))
        focused->moveKeyboardFocusToSibling (isForwards);
    else if (const auto stops = juce::KeyboardFocusTraverser().getAllComponents (this); ! stops.empty())
        (isForwards ? stops.front() : stops.back())->grabKeyboardFocus();

    return true;
}

void jInvisibleComponent::focusGained (FocusChangeType cause)
{
    if (cause == focusChangedDirectly && dialog != nullptr)
        focus.passOn (*dialog);
}

std::unique_ptr<juce::AccessibilityHandler> jInvisibleComponent::createAccessibilityHandler()
{
    return std::make_unique<juce::AccessibilityHandler> (*this, juce::AccessibilityRole::dialogWindow);
}
