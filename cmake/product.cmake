# The product is a library; the program only starts it.

# One source for what the program says of itself: the code, the Windows resources and the packages
# all take these.
set (PROGRAM_NAME "Dorvik Rigmart")
set (PROGRAM_VERSION ${PROJECT_VERSION})
set (PROGRAM_BUILD_DATE "15.04.06")      # YY.MM.DD
set (PROGRAM_RELEASE_DATE "Mon, 06 Apr 2015 12:00:00 +0000")    # the same day, as package changelogs write it
set (PROGRAM_PRODUCT "Klangora 4")       # what the store's content is for

configure_file (${CMAKE_SOURCE_DIR}/cmake/programVersion.h.in ${CMAKE_BINARY_DIR}/generated/app/programVersion.h)

file (GLOB product_sources CONFIGURE_DEPENDS
      ${CMAKE_SOURCE_DIR}/app/*.cpp ${CMAKE_SOURCE_DIR}/store/*.cpp ${CMAKE_SOURCE_DIR}/ui/*.cpp
      ${CMAKE_SOURCE_DIR}/net/*.cpp ${CMAKE_SOURCE_DIR}/content/*.cpp)
list (REMOVE_ITEM product_sources ${CMAKE_SOURCE_DIR}/app/main.cpp)

add_library (rigmart STATIC ${product_sources})
strict_warnings (rigmart)
target_include_directories (rigmart PUBLIC ${CMAKE_SOURCE_DIR} ${CMAKE_BINARY_DIR}/generated)
target_link_libraries (rigmart PUBLIC framework PRIVATE assets)

# Only this one source knows the store's address, so that another address costs one compilation.
set_source_files_properties (${CMAKE_SOURCE_DIR}/net/storeAddress.cpp PROPERTIES
                             COMPILE_DEFINITIONS "STORE_URL=\"${STORE_URL}\"")

add_executable (DorvikRigmart WIN32 app/main.cpp)
strict_warnings (DorvikRigmart)
target_link_libraries (DorvikRigmart PRIVATE rigmart)

if (WIN32)
  enable_language (RC)
  set (manifest ${CMAKE_SOURCE_DIR}/cmake/windows/DorvikRigmart.manifest)
  set (icon ${CMAKE_SOURCE_DIR}/assets/images/icon.ico)
  set (resources ${CMAKE_BINARY_DIR}/generated/DorvikRigmart.rc)
  configure_file (${CMAKE_SOURCE_DIR}/cmake/windows/DorvikRigmart.rc.in ${resources} @ONLY)
  set_source_files_properties (${resources} PROPERTIES OBJECT_DEPENDS "${icon};${manifest}")
  target_sources (DorvikRigmart PRIVATE ${resources})
endif()
