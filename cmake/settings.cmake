# What holds for every target of our own.

set (STORE_URL "" CACHE STRING
     "Origin of the store's web service, compiled into the program: scheme, host and port, no trailing slash")
if (NOT STORE_URL)    # the presets have it
  message (FATAL_ERROR "STORE_URL is not set: configure with a preset, such as cmake --preset linux")
endif()

option (SANITIZE "Address and undefined-behaviour sanitizers" OFF)
option (FUZZ "Fuzzers; wants clang" OFF)
option (LINT "To be read by static analysis, not to be built" OFF)
option (PROGRAM_ONLY "The program and its packages; no tests, benchmarks or tools, nor what they need" OFF)

# The time that is compiled in (__TIME__) is the release's. Compiled once is enough, in whichever checkout; the
# settings let ccache work with precompiled headers.
set (CMAKE_CXX_COMPILER_LAUNCHER ${CMAKE_COMMAND} -E env SOURCE_DATE_EPOCH=${PROGRAM_RELEASE_EPOCH})
find_program (CCACHE_PROGRAM ccache)
if (CCACHE_PROGRAM)
  list (APPEND CMAKE_CXX_COMPILER_LAUNCHER CCACHE_BASEDIR=${CMAKE_SOURCE_DIR} CCACHE_NOHASHDIR=1
        CCACHE_SLOPPINESS=pch_defines,time_macros,include_file_mtime,include_file_ctime ${CCACHE_PROGRAM})
endif()
set (CMAKE_C_COMPILER_LAUNCHER ${CMAKE_CXX_COMPILER_LAUNCHER})

set (CMAKE_CXX_STANDARD 17)
set (CMAKE_CXX_STANDARD_REQUIRED ON)
set (CMAKE_CXX_EXTENSIONS OFF)
set (CMAKE_CXX_FLAGS_RELEASE "-O2 -g1 -DNDEBUG")
set (CMAKE_CXX_FLAGS_DEBUG "-O0 -g3")
set (CMAKE_RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/bin)
set (CMAKE_EXPORT_COMPILE_COMMANDS ON)

if (SANITIZE)
  set (CMAKE_CXX_FLAGS_DEBUG "-O1 -g1 -fno-omit-frame-pointer")
  add_compile_options (-fsanitize=address,undefined -fno-sanitize-recover=all)
  add_link_options (-fsanitize=address,undefined)
endif()

if (FUZZ)
  set (CMAKE_CXX_FLAGS_RELEASE "-O1 -g1 -fno-omit-frame-pointer -DNDEBUG")
  add_compile_options (-fsanitize=fuzzer-no-link,address,undefined -fno-sanitize-recover=all)
endif()

# No path of the machine that built it in any file, and the same bytes from whichever folder. The last one that fits
# counts; the relative one is how ccache calls the sources.
add_compile_options (-ffile-prefix-map=../../= -ffile-prefix-map=${CMAKE_SOURCE_DIR}/=
                     -ffile-prefix-map=${CMAKE_BINARY_DIR}=. -ffile-prefix-map=${CMAKE_BINARY_DIR}/=)

# What makes a fault in memory end the program rather than take it over. scripts/check-hardening.sh looks for it in
# what is shipped. The sanitizers find more by themselves.
if (NOT SANITIZE AND NOT FUZZ)
  add_compile_options (-fstack-protector-strong $<$<CONFIG:Release>:-D_FORTIFY_SOURCE=2>)

  if (WIN32)
    add_link_options (-fstack-protector-strong LINKER:--dynamicbase,--high-entropy-va,--nxcompat)
  else()
    add_compile_options (-fPIE -fstack-clash-protection -fcf-protection)
    add_link_options (-pie LINKER:-z,relro,-z,now,-z,noexecstack)
  endif()
endif()

if (WIN32)    # the linker would write the time of day into the file
  add_link_options (LINKER:--no-insert-timestamp)
endif()

# The framework's headers take seconds to read. The fuzzers go without, which shows that each file includes what
# it needs; clang, which lints, cannot read those of GCC.
function (precompile_headers target)
  if (NOT FUZZ AND NOT LINT)
    target_compile_options (${target} PRIVATE $<$<CXX_COMPILER_ID:GNU>:-fpch-preprocess>)
    target_precompile_headers (${target} PRIVATE ${ARGN})
  endif()
endfunction()

# A release is stripped. Its symbols stay beside the file, where a debugger finds them.
function (keep_symbols_apart target)
  if (CMAKE_BUILD_TYPE STREQUAL "Release")
    add_custom_command (TARGET ${target} POST_BUILD VERBATIM
      COMMAND ${CMAKE_COMMAND} -E env SOURCE_DATE_EPOCH=${PROGRAM_RELEASE_EPOCH}
              ${CMAKE_OBJCOPY} --only-keep-debug $<TARGET_FILE:${target}> $<TARGET_FILE:${target}>.debug
      COMMAND ${CMAKE_COMMAND} -E env SOURCE_DATE_EPOCH=${PROGRAM_RELEASE_EPOCH}
              ${CMAKE_OBJCOPY} --strip-all --add-gnu-debuglink=$<TARGET_FILE:${target}>.debug $<TARGET_FILE:${target}>)
  endif()
endfunction()

# Warnings are errors in our code; the framework's headers come in as system headers.
function (strict_warnings target)
  target_compile_options (${target} PRIVATE
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion -Wcast-align
    -Wnull-dereference -Wunused -Woverloaded-virtual -Wformat=2 -Werror)

  if (SANITIZE)    # the instrumentation hides from GCC 12 that the standard library initialises what it reads
    target_compile_options (${target} PRIVATE -Wno-maybe-uninitialized -Wno-null-dereference)
  endif()
endfunction()
