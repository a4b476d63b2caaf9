# What holds for every target of our own.

set (STORE_URL "https://store.dorvik.example" CACHE STRING
     "Origin of the store's web service, compiled into the program: scheme, host and port, no trailing slash")
option (SANITIZE "Address and undefined-behaviour sanitizers" OFF)
option (FUZZ "Fuzzers; wants clang" OFF)

set (CMAKE_CXX_STANDARD 17)
set (CMAKE_CXX_STANDARD_REQUIRED ON)
set (CMAKE_CXX_EXTENSIONS OFF)
set (CMAKE_CXX_FLAGS_RELEASE "-O2 -DNDEBUG")
set (CMAKE_CXX_FLAGS_DEBUG "-O1 -g1 -fno-omit-frame-pointer")
set (CMAKE_RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/bin)
set (CMAKE_EXPORT_COMPILE_COMMANDS ON)

if (CMAKE_BUILD_TYPE STREQUAL "Release")
  add_link_options (-s)
endif()

if (SANITIZE)
  add_compile_options (-fsanitize=address,undefined -fno-sanitize-recover=all)
  add_link_options (-fsanitize=address,undefined)
endif()

# Warnings are errors in our code; the framework's headers come in as system headers.
function (strict_warnings target)
  target_compile_options (${target} PRIVATE
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion -Wcast-align
    -Wnull-dereference -Wunused -Woverloaded-virtual -Wformat=2 -Werror)

  if (SANITIZE)    # the instrumentation hides from GCC 12 that the standard library initialises what it reads
    target_compile_options (${target} PRIVATE -Wno-maybe-uninitialized -Wno-null-dereference)
  endif()
endfunction()
