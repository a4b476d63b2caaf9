# JUCE 7.0.5 from the system's package, copied into the build tree, patched, and compiled once into two static
# libraries: the modules that know no window, and the rest on top. The modules are private sources of their library;
# what a user of it needs, include folders and switches, is handed on through its interface.

find_package (JUCE 7.0.5 EXACT CONFIG REQUIRED)   # JUCE_MODULES_DIR and the binary-data tool
find_program (PATCH_PROGRAM patch REQUIRED)

set (framework_dir ${CMAKE_BINARY_DIR}/framework)
set (core_modules juce_core juce_cryptography)
set (window_modules juce_events juce_data_structures juce_graphics juce_gui_basics)
set (framework_modules ${core_modules} ${window_modules})
file (GLOB framework_patches CONFIGURE_DEPENDS ${CMAKE_CURRENT_LIST_DIR}/patches/*.patch)

# The copy is made anew whenever a patch changes; the stamp holds what it was made from.
set (wanted_stamp "${JUCE_MODULES_DIR}")
foreach (patch_file IN LISTS framework_patches)
  file (SHA256 ${patch_file} patch_hash)
  string (APPEND wanted_stamp "\n${patch_hash}")
endforeach()

set (stamp_file ${framework_dir}/stamp)
set (present_stamp "")
if (EXISTS ${stamp_file})
  file (READ ${stamp_file} present_stamp)
endif()

if (NOT present_stamp STREQUAL wanted_stamp)
  # Headers compiled before a patch changed would be taken for their own sources when they are compiled again.
  file (GLOB_RECURSE stale_headers ${CMAKE_BINARY_DIR}/*.gch)
  file (REMOVE_RECURSE ${framework_dir} ${stale_headers})
  foreach (module IN LISTS framework_modules)
    file (COPY ${JUCE_MODULES_DIR}/${module} DESTINATION ${framework_dir})
  endforeach()

  foreach (patch_file IN LISTS framework_patches)
    execute_process (COMMAND ${PATCH_PROGRAM} --binary --forward --fuzz=0 --strip=1 --input=${patch_file}
                     WORKING_DIRECTORY ${framework_dir}
                     RESULT_VARIABLE patch_result OUTPUT_VARIABLE patch_output ERROR_VARIABLE patch_output)
    if (NOT patch_result EQUAL 0)
      file (REMOVE_RECURSE ${framework_dir})
      message (FATAL_ERROR "The framework patch ${patch_file} no longer applies:\n${patch_output}")
    endif()
  endforeach()

  file (WRITE ${stamp_file} "${wanted_stamp}")
endif()

function (add_framework_library name)
  add_library (${name} STATIC)
  foreach (module IN LISTS ARGN)
    target_sources (${name} PRIVATE ${framework_dir}/${module}/${module}.cpp)
  endforeach()
  target_compile_options (${name} PRIVATE -w)
endfunction()

find_package (ZLIB REQUIRED)

add_framework_library (frameworkCore ${core_modules})
set_source_files_properties (${framework_dir}/juce_cryptography/juce_cryptography.cpp PROPERTIES
                             COMPILE_OPTIONS "$<$<CONFIG:Release>:-O3>")
target_include_directories (frameworkCore SYSTEM PUBLIC ${framework_dir})
target_compile_definitions (frameworkCore PUBLIC
  JUCE_GLOBAL_MODULE_SETTINGS_INCLUDED=1
  JUCE_STANDALONE_APPLICATION=1
  JUCE_MODAL_LOOPS_PERMITTED=1
  JUCE_WEB_BROWSER=0
  JUCE_DISPLAY_SPLASH_SCREEN=0      # allowed by the GPL, under which the product is published
  JUCE_LOAD_CURL_SYMBOLS_LAZILY=0
  $<IF:$<CONFIG:Debug>,DEBUG=1,NDEBUG=1>
  $<$<CONFIG:Debug>:_DEBUG=1>
  $<$<CONFIG:Debug>:JUCE_LOG_ASSERTIONS=1>)
foreach (module IN LISTS framework_modules)
  target_compile_definitions (frameworkCore PUBLIC JUCE_MODULE_AVAILABLE_${module}=1)
endforeach()

if (WIN32)
  include (delayedLibraries)
  foreach (library wininet version winmm dxgi)    # not on Windows' list of known libraries
    make_delayed_library (${library})
  endforeach()

  target_link_libraries (frameworkCore PUBLIC ZLIB::ZLIB
    ${delayed_wininet} ${delayed_version} ${delayed_winmm} uuid ole32 ws2_32 oleaut32 shlwapi rpcrt4)
else()
  find_package (CURL REQUIRED)
  find_package (Threads REQUIRED)
  target_link_libraries (frameworkCore PUBLIC CURL::libcurl ZLIB::ZLIB Threads::Threads rt ${CMAKE_DL_LIBS})
endif()

find_package (PNG REQUIRED)
find_package (JPEG REQUIRED)

if (FUZZ)    # the fuzzers link the core alone, but for the one of pictures
  find_package (Freetype REQUIRED)
  add_framework_library (frameworkPictures juce_events juce_graphics)
  target_link_libraries (frameworkPictures PUBLIC frameworkCore PNG::PNG JPEG::JPEG Freetype::Freetype)
  set_target_properties (frameworkPictures PROPERTIES EXCLUDE_FROM_ALL ON)
  return()
endif()

add_framework_library (framework ${window_modules})
target_link_libraries (framework PUBLIC frameworkCore PNG::PNG JPEG::JPEG)

if (WIN32)
  target_link_libraries (framework PUBLIC imm32 comdlg32 ${delayed_dxgi})
else()
  find_package (Freetype REQUIRED)
  target_link_libraries (framework PUBLIC Freetype::Freetype)
endif()
