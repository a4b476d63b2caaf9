# Pictures that are compiled into the program.

file (GLOB pictures CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/assets/images/banner-*.png
                                      ${CMAKE_SOURCE_DIR}/assets/images/icon-*.png)
juce_add_binary_data (assets NAMESPACE assets HEADER_NAME assets.h SOURCES ${pictures})
