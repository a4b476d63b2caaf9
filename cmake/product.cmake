# The product is a library; the program only starts it.

configure_file (${CMAKE_SOURCE_DIR}/cmake/programVersion.h.in ${CMAKE_BINARY_DIR}/generated/app/programVersion.h)

# The core knows no window: whatever of base/, net/ and content/ is no page. It shows its messages through
# store/showAttention.h, whose definition comes with the product, or with who links the core alone.
set (pages ${CMAKE_SOURCE_DIR}/net/store_auth.cpp ${CMAKE_SOURCE_DIR}/content/store_downloads.cpp)
file (GLOB core_sources CONFIGURE_DEPENDS
      ${CMAKE_SOURCE_DIR}/base/*.cpp ${CMAKE_SOURCE_DIR}/net/*.cpp ${CMAKE_SOURCE_DIR}/content/*.cpp)
list (REMOVE_ITEM core_sources ${pages})

add_library (rigmartCore STATIC ${core_sources})
strict_warnings (rigmartCore)
target_include_directories (rigmartCore PUBLIC ${CMAKE_SOURCE_DIR} ${CMAKE_BINARY_DIR}/generated)
target_link_libraries (rigmartCore PUBLIC frameworkCore)
precompile_headers (rigmartCore <juce_core/juce_core.h>)

# Only this one source knows the store's address, so that another address costs one compilation.
set_source_files_properties (${CMAKE_SOURCE_DIR}/net/storeAddress.cpp PROPERTIES
                             COMPILE_DEFINITIONS "STORE_URL=\"${STORE_URL}\"")

if (FUZZ)
  return()
endif()

file (GLOB product_sources CONFIGURE_DEPENDS
      ${CMAKE_SOURCE_DIR}/app/*.cpp ${CMAKE_SOURCE_DIR}/store/*.cpp ${CMAKE_SOURCE_DIR}/ui/*.cpp)
list (REMOVE_ITEM product_sources ${CMAKE_SOURCE_DIR}/app/main.cpp ${CMAKE_SOURCE_DIR}/app/librarySearch.cpp)

add_library (rigmart STATIC ${product_sources} ${pages})
strict_warnings (rigmart)
target_link_libraries (rigmart PUBLIC rigmartCore framework PRIVATE assets)
precompile_headers (rigmart <juce_gui_basics/juce_gui_basics.h>)
set_source_files_properties (${CMAKE_SOURCE_DIR}/ui/windowHints.cpp PROPERTIES
                             SKIP_PRECOMPILE_HEADERS ON SKIP_UNITY_BUILD_INCLUSION ON)    # it wants the X headers, too

add_executable (DorvikRigmart WIN32 app/main.cpp)
strict_warnings (DorvikRigmart)
target_link_libraries (DorvikRigmart PRIVATE rigmart)
keep_symbols_apart (DorvikRigmart)

if (WIN32)
  enable_language (RC)
  set (manifest ${CMAKE_SOURCE_DIR}/cmake/windows/DorvikRigmart.manifest)
  set (icon ${CMAKE_SOURCE_DIR}/assets/images/icon.ico)
  set (resources ${CMAKE_BINARY_DIR}/generated/DorvikRigmart.rc)
  configure_file (${CMAKE_SOURCE_DIR}/cmake/windows/DorvikRigmart.rc.in ${resources} @ONLY)
  set_source_files_properties (${resources} PROPERTIES OBJECT_DEPENDS "${icon};${manifest}")
  target_sources (DorvikRigmart PRIVATE ${resources} app/librarySearch.cpp)
endif()
