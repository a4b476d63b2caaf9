#include "ui/firstFocus.h"

firstFocus::firstFocus (juce::Component& pageOfControl, juce::Component& controlToFocus)
    : page (pageOfControl),
      control (controlToFocus)
{
    page.addComponentListener (this);
}

firstFocus::~firstFocus()
{
    page.removeComponentListener (this);
}

void firstFocus::componentVisibilityChanged (juce::Component&)
{
    if (page.isShowing() && ! page.isCurrentlyBlockedByAnotherModalComponent())
        control.grabKeyboardFocus();
}
