#include "tests/support/componentText.h"
#include "tests/support/person.h"

static juce::String font (const juce::Font& f)
{
    return juce::String (f.getHeight(), 1) + (f.isBold() ? " bold" : " plain");
}

static juce::String quoted (const juce::String& text)
{
    return "\"" + text.replace ("\n", "\\n") + "\"";
}

/** What is said of a child of a known kind, whose own children are the framework's; empty for any other. */
static juce::String describe (const juce::Component& c)
{
    const auto colour = [&c] (int id) { return c.findColour (id).toDisplayString (true).toLowerCase(); };

    if (auto* editor = dynamic_cast<const juce::TextEditor*> (&c))
    {
        const auto shownAs = editor->getPasswordCharacter();
        return "editor " + quoted (editor->getText()) + " for " + quoted (textOf (c))
               + (shownAs == 0 ? "" : ", shown as " + juce::String::charToString (shownAs)) + ", "
               + font (editor->getFont()) + ", text " + colour (juce::TextEditor::textColourId) + " on "
               + colour (juce::TextEditor::backgroundColourId) + ", edge "
               + colour (juce::TextEditor::outlineColourId);
    }

    if (auto* label = dynamic_cast<const juce::Label*> (&c))
        return "label " + quoted (textOf (c)) + ", " + font (label->getFont()) + ", text "
               + colour (juce::Label::textColourId) + ", placed "
               + juce::String (label->getJustificationType().getFlags())
               + (label->isEditable() ? ", editable" : "") + ", edited in "
               + colour (juce::TextEditor::textColourId) + " on "
               + colour (juce::TextEditor::backgroundColourId);

    if (dynamic_cast<const juce::GroupComponent*> (&c) != nullptr)
        return "group " + quoted (textOf (c)) + ", text " + colour (juce::GroupComponent::textColourId)
               + ", edge " + colour (juce::GroupComponent::outlineColourId);

    if (auto* toggle = dynamic_cast<const juce::ToggleButton*> (&c))
        return "toggle " + quoted (textOf (c)) + (toggle->getToggleState() ? ", on" : ", off") + ", text "
               + colour (juce::ToggleButton::textColourId);

    if (dynamic_cast<const juce::TextButton*> (&c) != nullptr)
        return "button " + quoted (textOf (c)) + ", text " + colour (juce::TextButton::textColourOnId)
               + " on " + colour (juce::TextButton::buttonColourId);

    return {};
}

static void append (juce::StringArray& lines, juce::Component& c, int depth)
{
    const auto description = describe (c);
    auto line = juce::String::repeatedString ("  ", depth);
    line << (depth == 0 ? c.getLocalBounds() : c.getBounds()).toString() << " "
         << (description.isNotEmpty() ? description : "component " + quoted (textOf (c)));

    if (c.getName().isNotEmpty())
        line << ", named " << quoted (c.getName());

    if (auto* tip = dynamic_cast<juce::SettableTooltipClient*> (&c))
        line << (tip->getTooltip().isNotEmpty() ? ", tip " + quoted (tip->getTooltip()) : "");

    if (c.getExplicitFocusOrder() > 0)
        line << ", focus " << c.getExplicitFocusOrder();
    else if (c.getWantsKeyboardFocus())
        line << ", focus";

    line << (c.isVisible() ? "" : ", hidden") << (c.getAlpha() < 1.0f ? ", faded" : "")
         << (c.isEnabled() ? "" : ", disabled");
    lines.add (line);

    if (description.isEmpty())
        for (auto* child : c.getChildren())
            append (lines, *child, depth + 1);
}

juce::StringArray componentText (juce::Component& component)
{
    juce::StringArray lines;
    append (lines, component, 0);
    return lines;
}
