#include "ui/jInvisibleComponent.h"
#include "ui/childrenUnion.h"
#include "ui/dialogRectTable.h"
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
      tintColour (tint)
{
    setWantsKeyboardFocus (true);
    setFocusContainerType (FocusContainerType::keyboardFocusContainer);
    juce::Desktop::getInstance().addFocusChangeListener (this);

    if (! ownWindow)
    {
        focusedBefore = juce::Component::getCurrentlyFocusedComponent();
        holder->addComponentListener (this);
    }
}

jInvisibleComponent::~jInvisibleComponent()
{
    const auto hadFocus = hasKeyboardFocus (true);
    juce::Desktop::getInstance().removeFocusChangeListener (this);
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

    if (tintLayer.getBounds() != bounds)
        tintLayer = juce::Image (juce::Image::ARGB, bounds.getWidth(), bounds.getHeight(), true);

    fillImage (tintLayer, tintColour);
    combineOver (composed, tintLayer);

    shadowed = childrenUnion (*this, false).expanded (1);

    juce::Graphics g (composed);
    g.addTransform (juce::AffineTransform::scale (scale));

    if (! shadowed.contains (getLocalBounds())) // else nothing of the shadow would show
    {
        juce::Path outline;
        outline.addRectangle (shadowed);
        juce::DropShadow (shadowColour, shadowRadius, { 0, shadowDrop }).drawForPath (g, outline);
    }

    renderBackground();
    g.setOpacity (1.0f);
    g.drawImageAt (background, shadowed.getX(), shadowed.getY());

    g.setColour (innerFrame);
    g.drawRect (shadowed);
    g.setColour (outerFrame);
    g.drawRect (shadowed.expanded (1));
}

void jInvisibleComponent::renderBackground()
{
    const auto size = shadowed.withZeroOrigin();

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

void jInvisibleComponent::childBoundsChanged (juce::Component*)
{
    dropPictures();

    if (ownWindow)
    {
        const auto area = childrenUnion (*this, true);

        if (! area.isEmpty())
            setSize (area.getWidth(), area.getHeight());
    }
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

void jInvisibleComponent::globalFocusChanged (juce::Component* focused)
{
    if (isParentOf (focused))
        lastFocused = focused;
}

void jInvisibleComponent::focusGained (FocusChangeType cause)
{
    if (cause != focusChangedDirectly)
        return;

    if (lastFocused != nullptr && lastFocused->isShowing() && lastFocused->isEnabled())
        lastFocused->grabKeyboardFocus();
    else if (const auto controls = juce::KeyboardFocusTraverser().getAllComponents (dialog.get());
             ! controls.empty())
        controls.front()->grabKeyboardFocus();
}

std::unique_ptr<juce::AccessibilityHandler> jInvisibleComponent::createAccessibilityHandler()
{
    return std::make_unique<juce::AccessibilityHandler> (*this, juce::AccessibilityRole::dialogWindow);
}
