#include "net/acceptableAddress.h"

bool isAcceptableAddress (const juce::String& text)
{
    const auto at = text.indexOfChar ('@');
    return at > 0 && text.lastIndexOfChar ('.') > at + 1 && ! text.endsWithChar ('.');
}
