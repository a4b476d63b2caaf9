#include "tests/support/mouse.h"

void mouse (juce::Component& component, int x, int y, bool isDown)
{
    auto& peer = *component.getPeer();
    auto& window = peer.getComponent();
    const auto scale = (float) peer.getBounds().getWidth() / (float) window.getWidth();
    const auto position = window.getLocalPoint (&component, juce::Point<int> (x, y)).toFloat() * scale;
    peer.handleMouseEvent (juce::MouseInputSource::InputSourceType::mouse, position,
                           isDown ? juce::ModifierKeys::leftButtonModifier : 0, 0.0f, 0.0f,
                           juce::Time::currentTimeMillis());
}

void click (juce::Component& component, int x, int y)
{
    mouse (component, x, y, false);
    mouse (component, x, y, true);
}
