#pragma once

#include "content/DownloadItem.h"

/** What is to be done about an item of the catalogue. */
enum class itemDecision
{
    blocked,   /**< It needs a newer program. */
    misplaced, /**< Its target is not below the installation folder, or there is no such folder. */
    current,   /**< The build on offer, or a newer one, is installed. */
    needed     /**< Nothing is installed, or an older build. */
};

/** Decides in this order: by the program's build date, held against the requirement as text; by the target, which
    is not touched when it is misplaced (see targetPath); by what is installed there (see installedBuild, whose message
    box this may open). The arguments need not live until it returns. */
itemDecision decideItem (const DownloadItem& item, const juce::String& installationFolder);
