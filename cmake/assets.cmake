# Pictures that are compiled into the program.

file (GLOB banners CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/assets/images/banner-*.png)
juce_add_binary_data (assets NAMESPACE assets HEADER_NAME assets.h SOURCES
  ${banners} ${CMAKE_SOURCE_DIR}/assets/images/icon-256.png)
