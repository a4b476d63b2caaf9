# What CPack makes of a build: a zip for Windows, a Debian package for Linux. See package.sh.

set (CPACK_PACKAGE_NAME "dorvik-rigmart")
set (CPACK_PACKAGE_VENDOR "Dorvik Electronics")
set (CPACK_PACKAGE_CONTACT "Dorvik Electronics <support@dorvik.example>")
set (CPACK_PACKAGE_DESCRIPTION_SUMMARY "Client of the content store for ${PROGRAM_PRODUCT}")
set (CPACK_PACKAGE_DESCRIPTION "Logs on to the store, shows what an account may download and keeps the installed
 amps, effects, cabinets and rooms of ${PROGRAM_PRODUCT} up to date.")
set (CPACK_PACKAGE_VERSION ${PROGRAM_VERSION})
set (CPACK_PACKAGE_DIRECTORY ${CMAKE_BINARY_DIR}/packages)
set (CPACK_STRIP_FILES OFF)      # the build has done it
set (package_dir ${CMAKE_SOURCE_DIR}/cmake/package)

if (WIN32)
  set (CPACK_GENERATOR ZIP)
  set (CPACK_PACKAGE_FILE_NAME "${CPACK_PACKAGE_NAME}-${PROGRAM_VERSION}-windows-x86_64")
  configure_file (${package_dir}/read-me.txt.in ${CMAKE_BINARY_DIR}/generated/package/read-me.txt NEWLINE_STYLE CRLF)
  configure_file (${CMAKE_SOURCE_DIR}/LICENSE ${CMAKE_BINARY_DIR}/generated/package/licence.txt COPYONLY)
  install (TARGETS DorvikRigmart RUNTIME DESTINATION .)
  install (FILES ${CMAKE_BINARY_DIR}/generated/package/read-me.txt
                 ${CMAKE_BINARY_DIR}/generated/package/licence.txt DESTINATION .)
else()
  set (CPACK_GENERATOR DEB)
  set (CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
  set (CPACK_DEBIAN_PACKAGE_SECTION sound)
  set (CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
  # The framework opens the X libraries as it starts, so that the linker knows nothing of them; it draws no text
  # without a font and fontconfig's list of font folders; and the store is not trusted without authorities.
  set (CPACK_DEBIAN_PACKAGE_DEPENDS
       "libx11-6, libxext6, libxcursor1, libxinerama1, libxrandr2, fontconfig-config, \
fonts-dejavu-core | fonts-freefont-ttf, ca-certificates")
  set (CPACK_INSTALL_PREFIX /usr)
  set (CPACK_PACKAGING_INSTALL_PREFIX /usr)

  set (generated ${CMAKE_BINARY_DIR}/generated/package)
  configure_file (${package_dir}/dorvik-rigmart.1.in ${generated}/dorvik-rigmart.1)
  configure_file (${package_dir}/dorvik-rigmart.desktop.in ${generated}/dorvik-rigmart.desktop)
  configure_file (${package_dir}/changelog.in ${generated}/changelog.Debian)
  find_program (GZIP_PROGRAM gzip REQUIRED)

  foreach (page dorvik-rigmart.1 changelog.Debian)
    execute_process (COMMAND ${GZIP_PROGRAM} --best --no-name --force --keep ${generated}/${page}
                     COMMAND_ERROR_IS_FATAL ANY)
  endforeach()

  install (PROGRAMS $<TARGET_FILE:DorvikRigmart> DESTINATION bin RENAME dorvik-rigmart)
  install (FILES ${generated}/dorvik-rigmart.desktop DESTINATION share/applications)
  install (FILES ${generated}/dorvik-rigmart.1.gz DESTINATION share/man/man1)
  install (FILES ${generated}/changelog.Debian.gz ${package_dir}/copyright DESTINATION share/doc/dorvik-rigmart)

  foreach (size 16 32 48 64 128 256)
    install (FILES ${CMAKE_SOURCE_DIR}/assets/images/icon-${size}.png
             DESTINATION share/icons/hicolor/${size}x${size}/apps RENAME dorvik-rigmart.png)
  endforeach()
endif()

include (CPack)
