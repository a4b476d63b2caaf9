#pragma once

#include <juce_core/juce_core.h>

/** One entry of the catalogue. */
struct DownloadItem
{
    juce::String url;     /**< Absolute address of the file. */
    juce::String target;  /**< Full path: the installation folder + "/" + the catalogue's target. */
    juce::String name;    /**< Shown in every message. */
    int buildnumber = -1; /**< Build of the item on offer; -1 when the catalogue gives none. */
    juce::String builddaterequirement{ "000000" }; /**< YYMMDD of the oldest program that can use the item. */
};
