#pragma once

#include "content/jSimpleArchive.h"
#include "content/jSimpleArchiveDirectory.h"

/** Where the product is installed. Filled once at start-up by findInstallationPaths, on the message
    thread, and only read afterwards. */

/** Root of every file that the program reads or writes; empty until found. Keeps the registry's text even
    when no such folder exists. */
extern juce::String installationFolder;

/** The product's registry key. */
extern juce::String registryKeyPath;

/** Serves the interface pictures from a folder. */
extern jSimpleArchiveDirectory guiFolderSource;

/** Serves the interface pictures from a packed archive. Its validity includes that loading it succeeded. */
extern jSimpleArchive guiArchiveSource;

/** Whichever of the two sources is in use, or null. Not owned. May point at a source that is not valid. */
extern jSimpleArchive* guiDataSource;

/** Reads the installation folder from the registry and picks the source of the interface pictures. Reports
    each failure in a message box and never stops the start. Does nothing once a folder was found. */
void findInstallationPaths();
