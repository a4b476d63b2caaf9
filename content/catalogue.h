#pragma once

#include "content/DownloadItem.h"

/** Appends the items of a catalogue reply, in document order: every child element named "downloadable" that has
    the attributes "url", "target" and "name". Its optional attributes are "buildnumber" (an integer; 0 for other
    text) and "builddaterequirement". Other elements and attributes mean nothing; two elements with the same
    target are two items. Targets become full paths below `installationFolder`, unchecked. */
void readCatalogue (const juce::XmlElement& reply, const juce::String& installationFolder,
                    juce::Array<DownloadItem>& items);
