#pragma once

#include "content/DownloadItem.h"
#include "store/genericlistener.h"
#include <functional>

/** Stands in for the dialog that owns a downloads page, and hands out a catalogue. */
struct catalogueOwner : genericlistener
{
    juce::Array<DownloadItem> items;
    int lists = 0; /**< How often it was told to fetch the catalogue. */

    /** Called with each message and request, before it is answered. */
    std::function<void (const juce::String& text)> whenCalled = [] (auto&) {};

    void handleMessage (const juce::String&, const juce::var&, const juce::var&, const juce::var&) override;
    juce::var handleRequest (const juce::String& text, const juce::var& index, const juce::var&,
                             const juce::var&) override;
};

/** Presses the button of a downloads page whose catalogue has these items, with targets below the installation folder,
    and returns the message boxes of that run once it is over. */
juce::StringArray runDownloads (const juce::Array<DownloadItem>& catalogue);
