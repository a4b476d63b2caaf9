# Pictures that are compiled into the program.

juce_add_binary_data (assets NAMESPACE assets HEADER_NAME assets.h SOURCES
  ${CMAKE_SOURCE_DIR}/assets/images/banner-welcome.png
  ${CMAKE_SOURCE_DIR}/assets/images/banner-account.png
  ${CMAKE_SOURCE_DIR}/assets/images/icon-256.png)
