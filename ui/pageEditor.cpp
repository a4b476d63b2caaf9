#include "ui/pageEditor.h"
#include "ui/pageLabel.h"

static const juce::String& lineEnds()
{
    static const juce::String characters (juce::CharPointer_UTF8 ("\r\n\v\f\u0085\u2028\u2029"));
    return characters;
}

/** Blanks and what looks like none at all: those of fixed widths, of no width, and the mark of the byte order. */
static const juce::String& blanks()
{
    static const juce::String characters (
        juce::CharPointer_UTF8 (" \t\u00a0\u2000\u2001\u2002\u2003\u2004\u2005\u2006\u2007\u2008\u2009\u200a"
                                "\u200b\u200c\u200d\u202f\u205f\u2060\u3000\ufeff"));
    return characters;
}

pageEditor::pageEditor (content contentOfField)
    : TextEditor ({}, contentOfField == content::password ? '*' : 0),
      kind (contentOfField)
{
    setFont (juce::Font (pageLabel::textHeight));
    setIndents (4, 0);
    setJustification (juce::Justification::centredLeft);
    setSelectAllWhenFocused (true);
    setEscapeAndReturnKeysConsumed (false);
    setInputFilter (this, false);
}

void pageEditor::focusGained (FocusChangeType cause)
{
    const auto marked = getHighlightedRegion();
    TextEditor::focusGained (cause);

    if (! focusMovedOn && cause == focusChangedDirectly) // the framework may tell it twice
        setHighlightedRegion (marked);
}

void pageEditor::focusLost (FocusChangeType cause)
{
    focusMovedOn = getCurrentlyFocusedComponent() != nullptr;
    TextEditor::focusLost (cause);
}

juce::String pageEditor::filterNewText (juce::TextEditor&, const juce::String& newInput)
{
    const auto text = newInput.removeCharacters (lineEnds());
    return kind == content::password ? text
                                     : text.trimCharactersAtStart (blanks()).trimCharactersAtEnd (blanks());
}
