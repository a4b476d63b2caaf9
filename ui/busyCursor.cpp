#include "ui/busyCursor.h"
#include <juce_gui_basics/juce_gui_basics.h>

static int depth = 0;

/** Waits until the display has shown what was drawn: its answer to a question comes after all that. */
static void waitForDisplay()
{
    juce::Desktop::getMousePosition();
}

/** All of them, wholly: where a message box has just closed, the system's word that the window below needs painting
    still waits among the events. */
static void paintWindows()
{
    auto& desktop = juce::Desktop::getInstance();

    for (int i = desktop.getNumComponents(); --i >= 0;)
        if (auto* peer = desktop.getComponent (i)->getPeer())
        {
            desktop.getComponent (i)->repaint();
            peer->performAnyPendingRepaintsNow();
        }
}

busyCursor::busyCursor()
{
    if (depth++ == 0)
    {
        waitForDisplay(); // no window is painted while its last picture is on its way
        paintWindows();
        juce::MouseCursor::showWaitCursor();
        waitForDisplay();
    }
}

busyCursor::~busyCursor()
{
    if (--depth > 0)
        return;

    if (dropsInput)
        juce::ComponentPeer::discardPendingInput();

    juce::MouseCursor::hideWaitCursor();
}

bool busyCursor::isShown()
{
    return depth > 0;
}
