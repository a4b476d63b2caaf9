# Cross-compiles for Windows on x86-64 with mingw-w64.

set (CMAKE_SYSTEM_NAME Windows)
set (CMAKE_SYSTEM_PROCESSOR x86_64)

# The posix flavour: the win32 one has no std::mutex.
set (CMAKE_C_COMPILER x86_64-w64-mingw32-gcc-posix)
set (CMAKE_CXX_COMPILER x86_64-w64-mingw32-g++-posix)
set (CMAKE_RC_COMPILER x86_64-w64-mingw32-windres)

# The compiler's runtime goes into the program, which then needs Windows' own DLLs and nothing else.
set (CMAKE_EXE_LINKER_FLAGS_INIT -static)

# Libraries are the ones that scripts/windows-libs.sh made, all static, and no others: the import library
# of a DLL cannot slip in. CMake packages are the host's, from the folder that a build for the host searches
# by itself: the framework comes as sources.
get_filename_component (CMAKE_FIND_ROOT_PATH "${CMAKE_CURRENT_LIST_DIR}/../build/windows-libs" ABSOLUTE)
set (CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set (CMAKE_FIND_ROOT_PATH_MODE_PACKAGE NEVER)
set (CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set (CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set (CMAKE_PREFIX_PATH "/usr/lib/${CMAKE_HOST_SYSTEM_PROCESSOR}-linux-gnu/cmake")

set (CMAKE_CROSSCOMPILING_EMULATOR "${CMAKE_CURRENT_LIST_DIR}/../scripts/wine-run.sh")
