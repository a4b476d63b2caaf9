#include "ui/childrenUnion.h"
#include <optional>

juce::Rectangle<int> childrenUnion (const juce::Component& parent, bool onlyVisible)
{
    std::optional<juce::Rectangle<int>> result;

    for (auto* child : parent.getChildren())
    {
        const auto area = child->getBounds();

        if (onlyVisible && ! child->isVisible())
            continue;

        if (! result)
            result = area;
        else if (! area.isEmpty())
            result = juce::Rectangle<int>::leftTopRightBottom (
                juce::jmin (result->getX(), area.getX()), juce::jmin (result->getY(), area.getY()),
                juce::jmax (result->getRight(), area.getRight()),
                juce::jmax (result->getBottom(), area.getBottom()));
    }

    return result.value_or (juce::Rectangle<int>());
}
