#include "ui/jpseudomodaldialog.h"
#include "ui/dialogWindow.h"

static constexpr int closeCommand = 999;
static const juce::Colour tint (0x34001122);

jpseudomodaldialog::jpseudomodaldialog (juce::Component* holderToUse, genericlistener* ownerToTell,
                                        const juce::String& title, const juce::String& label1,
                                        const juce::String& result1, const juce::String& label2,
                                        const juce::String& result2, const juce::String& label3,
                                        const juce::String& result3, bool windowHasShadow)
    : holder (holderToUse),
      listener (ownerToTell)
{
    dialogWindow* window = nullptr;

    if (holder == nullptr)
    {
        ownWindow = true;
        holder = window = new dialogWindow (*this, title, windowHasShadow);
    }

    overlay = new jInvisibleComponent (*this, *holder, ownWindow, tint);
    overlay->setTitle (title);
    overlay->setBounds (holder->getLocalBounds());

    if (window != nullptr)
        window->setContentOwned (overlay, true);
    else
        holder->addAndMakeVisible (overlay);

    titleBar = std::make_unique<jpseudomodaldialogtitlebar> (title, ownWindow);
    overlay->addAndMakeVisible (*titleBar);

    buttonBar = std::make_unique<jpseudomodaldialogbuttonbar> (
        *this, jpseudomodaldialogbuttonbar::buttons{
                   { { label1, result1 }, { label2, result2 }, { label3, result3 } } });
    overlay->addAndMakeVisible (*buttonBar);
    overlay->addAndMakeVisible (this);
    listed = openDialogList::add (*overlay);

    if (window == nullptr)
        jpseudomodaldialog::placeDialog();

    if (window == nullptr && overlay->isShowing())
        overlay->grabKeyboardFocus();
}

jpseudomodaldialog::~jpseudomodaldialog()
{
    openDialogList::remove (*listed);

    if (overlay != nullptr) // deleted by itself rather than with its overlay
    {
        overlay->releaseDialog();
        deleteFrame();
    }
}

void jpseudomodaldialog::deleteFrame()
{
    delete (ownWindow ? holder.getComponent() : overlay);
}

void jpseudomodaldialog::beforeResult (const juce::String&, const juce::var&, const juce::var&,
                                       const juce::var&)
{}

void jpseudomodaldialog::afterResult (const juce::String&, const juce::var&, const juce::var&,
                                      const juce::var&)
{}

void jpseudomodaldialog::placeDialog()
{
    constexpr float widthShare = 0.9f;
    constexpr int height = 500;

    if (holder != nullptr)
    {
        const auto width = (int) (widthShare * (float) holder->getWidth());
        setBounds (holder->getWidth() / 2 - width / 2, holder->getHeight() / 2 - height / 2, width, height);
    }
}

void jpseudomodaldialog::done()
{
    finishDialog ("Done", {}, {}, {});
}

void jpseudomodaldialog::aboutToClose (int)
{}

void jpseudomodaldialog::closeWithResult (const juce::String& result)
{
    pendingResult = result;
    postCommandMessage (closeCommand);
}

void jpseudomodaldialog::finishDialog (const juce::String& result, const juce::var& a, const juce::var& b,
                                       const juce::var& c)
{
    if (std::exchange (isFinishing, true))
        return;

    const juce::Component::SafePointer<juce::Component> stillThere (this);
    beforeResult (result, a, b, c);

    if (stillThere != nullptr && result.isNotEmpty() && listener != nullptr)
        listener->handleMessage (result, a, b, c);

    if (stillThere != nullptr)
        afterResult (result, a, b, c);

    if (stillThere != nullptr)
        deleteFrame();
}

void jpseudomodaldialog::setDialogSize (int width, int height)
{
    const juce::Rectangle<int> size (width < 1 ? getWidth() : width, height < 1 ? getHeight() : height);
    const auto middle = juce::Point<int> (overlay->getWidth() / 2 - size.getWidth() / 2,
                                          overlay->getHeight() / 2 - size.getHeight() / 2);

    setBounds (size + (ownWindow ? juce::Point<int> (0, barHeight) : middle));
    overlay->repaint();
    setVisible (true);
}

void jpseudomodaldialog::requestClose()
{
    juce::PopupMenu::dismissAllActiveMenus(); // an open context menu is no message box

    if (isCurrentlyBlockedByAnotherModalComponent()) // not by its holder, if that is modal
        getCurrentlyModalComponent()->toFront (true);
    else
        done();
}

void jpseudomodaldialog::layOutBars()
{
    titleBar->setBounds (getX(), getY() - barHeight, getWidth(), barHeight);
    buttonBar->setBounds (getX(), getBottom(), getWidth(), barHeight);
}

void jpseudomodaldialog::paint (juce::Graphics&)
{}

void jpseudomodaldialog::resized()
{
    layOutBars();
}

void jpseudomodaldialog::moved()
{
    layOutBars();
}

void jpseudomodaldialog::handleCommandMessage (int commandId)
{
    if (commandId != closeCommand)
        return;

    const juce::Component::SafePointer<juce::Component> stillThere (this);
    aboutToClose (commandId);

    if (stillThere != nullptr)
        finishDialog (pendingResult.isNotEmpty() ? pendingResult : "Done", {}, {}, {});
}

bool jpseudomodaldialog::keyPressed (const juce::KeyPress& key)
{
    if (key.isKeyCode (juce::KeyPress::escapeKey))
    {
        requestClose();
        return true;
    }

    if (auto* button = dynamic_cast<juce::Button*> (getCurrentlyFocusedComponent());
        button != nullptr && key == juce::KeyPress (juce::KeyPress::spaceKey))
    {
        button->triggerClick();
        return true;
    }

    return ! ownWindow && ! key.isKeyCode (juce::KeyPress::tabKey) && ! key.getModifiers().isAltDown();
}
