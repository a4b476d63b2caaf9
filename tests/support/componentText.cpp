#include "tests/support/componentText.h"
#include "tests/support/expectedText.h"

static juce::String colour (const juce::Component& component, int id)
{
    return component.findColour (id).toDisplayString (true).toLowerCase();
}

static juce::String font (const juce::Font& f)
{
    return juce::String (f.getHeight(), 1) + (f.isBold() ? " bold" : " plain");
}

static juce::String quoted (const juce::String& text)
{
    return "\"" + plainLine (text) + "\"";
}

juce::String textOf (const juce::Component& c)
{
    if (auto* label = dynamic_cast<const juce::Label*> (&c))
        return label->getText();

    if (auto* group = dynamic_cast<const juce::GroupComponent*> (&c))
        return group->getText();

    if (auto* button = dynamic_cast<const juce::Button*> (&c))
        return button->getButtonText();

    return c.getTitle();
}

/** What is said of a child of a known kind, whose own children are the framework's; empty for any other. */
static juce::String describe (const juce::Component& c)
{
    if (auto* editor = dynamic_cast<const juce::TextEditor*> (&c))
    {
        const auto shownAs = editor->getPasswordCharacter();
        return "editor " + quoted (editor->getText()) + " for " + quoted (textOf (c))
               + (shownAs == 0 ? "" : ", shown as " + juce::String::charToString (shownAs)) + ", "
               + font (editor->getFont()) + ", text " + colour (c, juce::TextEditor::textColourId) + " on "
               + colour (c, juce::TextEditor::backgroundColourId) + ", edge "
               + colour (c, juce::TextEditor::outlineColourId);
    }

    if (auto* label = dynamic_cast<const juce::Label*> (&c))
        return "label " + quoted (textOf (c)) + ", " + font (label->getFont()) + ", text "
               + colour (c, juce::Label::textColourId) + ", placed "
               + juce::String (label->getJustificationType().getFlags())
               + (label->isEditable() ? ", editable" : "") + ", edited in "
               + colour (c, juce::TextEditor::textColourId) + " on "
               + colour (c, juce::TextEditor::backgroundColourId);

    if (dynamic_cast<const juce::GroupComponent*> (&c) != nullptr)
        return "group " + quoted (textOf (c)) + ", text " + colour (c, juce::GroupComponent::textColourId)
               + ", edge " + colour (c, juce::GroupComponent::outlineColourId);

    if (auto* toggle = dynamic_cast<const juce::ToggleButton*> (&c))
        return "toggle " + quoted (textOf (c)) + (toggle->getToggleState() ? ", on" : ", off") + ", text "
               + colour (c, juce::ToggleButton::textColourId);

    if (dynamic_cast<const juce::TextButton*> (&c) != nullptr)
        return "button " + quoted (textOf (c)) + ", text " + colour (c, juce::TextButton::textColourOnId)
               + " on " + colour (c, juce::TextButton::buttonColourId);

    return {};
}

static void append (juce::String& text, const juce::Component& c, int depth)
{
    const auto description = describe (c);
    const auto bounds = depth == 0 ? c.getLocalBounds() : c.getBounds();
    text << juce::String::repeatedString ("  ", depth) << bounds.toString() << " "
         << (description.isNotEmpty() ? description : "component " + quoted (textOf (c)));

    if (c.getName().isNotEmpty())
        text << ", named " << quoted (c.getName());

    if (auto* tip = dynamic_cast<const juce::SettableTooltipClient*> (&c);
        tip != nullptr && const_cast<juce::SettableTooltipClient*> (tip)->getTooltip().isNotEmpty())
        text << ", tip " << quoted (const_cast<juce::SettableTooltipClient*> (tip)->getTooltip());

    if (c.getExplicitFocusOrder() > 0)
        text << ", focus " << c.getExplicitFocusOrder();
    else if (c.getWantsKeyboardFocus())
        text << ", focus";

    text << (c.isVisible() ? "" : ", hidden") << (c.getAlpha() < 1.0f ? ", faded" : "")
         << (c.isEnabled() ? "" : ", disabled") << "\n";

    if (description.isEmpty())
        for (auto* child : c.getChildren())
            append (text, *child, depth + 1);
}

juce::String componentText (const juce::Component& component)
{
    juce::String text;
    append (text, component, 0);
    return text;
}
