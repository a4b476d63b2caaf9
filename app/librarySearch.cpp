// Windows only. Part of the program alone, not of its library.

#include <windows.h>

/** Before anything else of the program runs, static objects included: from here on a library that is asked for by
    its name comes out of the system's folder, never from beside the program, where a download folder may hold one
    that somebody planted. Libraries that Windows itself does not guard in this way are loaded when they are first
    called, which is later (cmake/delayedLibraries.cmake). */
__attribute__ ((constructor (101))) static void searchSystemFolderOnly()
{
    SetDefaultDllDirectories (LOAD_LIBRARY_SEARCH_SYSTEM32);
}
