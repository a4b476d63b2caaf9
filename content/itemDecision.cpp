#include "content/itemDecision.h"
#include "app/programVersion.h"
#include "content/installedBuild.h"
#include "content/targetPath.h"

static bool isBelow (const juce::String& installationFolder, const juce::String& target)
{
    const auto root = installationFolder + "/";

    return juce::File::isAbsolutePath (installationFolder) && target.startsWith (root)
           && isAllowedTarget (target.substring (root.length()));
}

itemDecision decideItem (const DownloadItem& item, const juce::String& installationFolder)
{
    const auto programDate = juce::String (PROGRAM_BUILD_DATE).removeCharacters (".");

    if (programDate.compare (item.builddaterequirement) < 0)
        return itemDecision::blocked;

    if (! isBelow (installationFolder, item.target))
        return itemDecision::misplaced;

    const auto installed = installedBuild (item.target);

    return installed.has_value() && item.buildnumber <= *installed ? itemDecision::current
                                                                   : itemDecision::needed;
}
