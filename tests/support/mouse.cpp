#include "tests/support/mouse.h"

static void mouseWith (juce::Component& component, int x, int y, int buttons)
{
    auto& peer = *component.getPeer();
    auto& window = peer.getComponent();
    const auto scale = (float) peer.getBounds().getWidth() / (float) window.getWidth();
    const auto position = window.getLocalPoint (&component, juce::Point<int> (x, y)).toFloat() * scale;
    peer.handleMouseEvent (juce::MouseInputSource::InputSourceType::mouse, position, buttons, 0.0f, 0.0f,
                           juce::Time::currentTimeMillis());
}

void mouse (juce::Component& component, int x, int y, bool isDown)
{
    mouseWith (component, x, y, isDown ? juce::ModifierKeys::leftButtonModifier : 0);
}

void click (juce::Component& component, int x, int y)
{
    mouse (component, x, y, false);
    mouse (component, x, y, true);
}

void rightClick (juce::Component& component, int x, int y)
{
    for (auto buttons : { 0, (int) juce::ModifierKeys::rightButtonModifier, 0 })
        mouseWith (component, x, y, buttons);
}
