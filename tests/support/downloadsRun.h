#pragma once

#include "content/DownloadItem.h"

/** Presses the button of a downloads page whose catalogue has these items, and returns the message boxes of that run
    once it is over. Their targets are below `installationFolder`, and "token" is sent for them. */
juce::StringArray runDownloads (const juce::Array<DownloadItem>& catalogue);
