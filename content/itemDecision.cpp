#include "content/itemDecision.h"
#include "app/programVersion.h"
#include "content/installedBuild.h"
#include "content/targetPath.h"

itemDecision decideItem (const DownloadItem& item, const juce::String& installationFolder)
{
    const auto programDate = juce::String (PROGRAM_BUILD_DATE).removeCharacters (".");

    if (programDate.compare (item.builddaterequirement) < 0)
        return itemDecision::blocked;

    const auto path = targetPath (item.target, installationFolder);

    if (! path.has_value())
        return itemDecision::misplaced;

    // Looking may open a message box, in which the item's owner may go.
    const auto offered = item.buildnumber;
    const auto installed = installedBuild (*path);

    return installed.has_value() && offered <= *installed ? itemDecision::current : itemDecision::needed;
}
