# What CPack makes of a build: an installer and a zip for Windows, a Debian package for Linux. See package.sh.

set (CPACK_PACKAGE_NAME "dorvik-rigmart")
set (CPACK_PACKAGE_VENDOR ${PROGRAM_MAKER})
set (CPACK_PACKAGE_CONTACT "${PROGRAM_MAKER} <${PROGRAM_CONTACT}>")
set (CPACK_PACKAGE_DESCRIPTION_SUMMARY "client of the content store for ${PROGRAM_PRODUCT}")
set (CPACK_PACKAGE_DESCRIPTION "Logs on to an account of the store and downloads the content that the account
owns and that is missing or out of date: amps, effects, cabinets and rooms
for the guitar-amplifier simulation ${PROGRAM_PRODUCT}. Each file is checked
for its announced size and then put in place in one step.

An installation of ${PROGRAM_PRODUCT} is needed to download into.")
set (CPACK_PACKAGE_VERSION ${PROGRAM_VERSION})
set (CPACK_PACKAGE_DIRECTORY ${CMAKE_BINARY_DIR}/packages)
set (CPACK_STRIP_FILES OFF)      # the build has done it

set (package_dir ${CMAKE_SOURCE_DIR}/cmake/package)
set (generated ${CMAKE_BINARY_DIR}/generated/package)

# What has changed, for people, becomes the Debian changelog and the release notes of software centres.
set_property (DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/CHANGELOG.md)
file (READ ${CMAKE_SOURCE_DIR}/CHANGELOG.md changes)
string (REPLACE "." "\\." version_pattern ${PROGRAM_VERSION})
if (NOT changes MATCHES "\n## ${version_pattern}, ${PROGRAM_RELEASE_DAY}\n+(- [^#]*)")
  message (FATAL_ERROR "CHANGELOG.md has no section \"## ${PROGRAM_VERSION}, ${PROGRAM_RELEASE_DAY}\".")
endif()
string (STRIP "${CMAKE_MATCH_1}" changes)
string (REPLACE "\n" "\n  " CHANGES_DEBIAN "  ${changes}")
string (REPLACE "  - " "  * " CHANGES_DEBIAN "${CHANGES_DEBIAN}")
string (REGEX REPLACE "- ([^\n]*(\n  [^\n]+)*)" "          <li>\\1</li>" CHANGES_XML "${changes}")

# The notices of what is linked in.
function (write_notices platform)
  execute_process (COMMAND ${CMAKE_SOURCE_DIR}/scripts/parts.sh notices ${platform}
                   OUTPUT_FILE ${generated}/notices.txt COMMAND_ERROR_IS_FATAL ANY)
endfunction()

# Before packing: every file gets the time of the release, and Windows programs their signature if there is a key.
set (CPACK_PRE_BUILD_SCRIPTS ${package_dir}/prepare.cmake)
set (CPACK_RIGMART_RELEASE_EPOCH ${PROGRAM_RELEASE_EPOCH})
set (CPACK_RIGMART_SIGN ${CMAKE_SOURCE_DIR}/scripts/sign.sh)

if (WIN32)
  set (CPACK_GENERATOR NSIS ZIP)
  set (CPACK_PACKAGE_FILE_NAME "${CPACK_PACKAGE_NAME}-${PROGRAM_VERSION}-windows-x86_64")
  file (MAKE_DIRECTORY ${generated})
  write_notices (windows)
  configure_file (${package_dir}/read-me.txt.in ${generated}/read-me.txt NEWLINE_STYLE CRLF)
  configure_file (${CMAKE_SOURCE_DIR}/LICENSE ${generated}/licence.txt NEWLINE_STYLE CRLF)
  install (TARGETS DorvikRigmart RUNTIME DESTINATION .)
  install (FILES ${generated}/read-me.txt ${generated}/licence.txt ${generated}/notices.txt DESTINATION .)

  # The installer's script is ours (cmake/package/NSIS.template.in): CPack's own asks for an administrator.
  list (PREPEND CMAKE_MODULE_PATH ${package_dir})
  set (CPACK_RIGMART_PROGRAM ${PROGRAM_NAME})
  set (CPACK_RIGMART_ICON ${CMAKE_SOURCE_DIR}/assets/images/icon.ico)
else()
  set (CPACK_GENERATOR DEB)
  set (CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
  set (CPACK_DEBIAN_PACKAGE_SECTION sound)
  set (CPACK_DEBIAN_PACKAGE_HOMEPAGE ${STORE_URL})
  set (CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
  # The framework opens the X libraries as it starts, so that the linker knows nothing of them; it draws no text
  # without a font and fontconfig's list of font folders; and the store is not trusted without authorities.
  set (CPACK_DEBIAN_PACKAGE_DEPENDS
       "libx11-6, libxext6, libxcursor1, libxinerama1, libxrandr2, fontconfig-config, \
fonts-dejavu-core | fonts-freefont-ttf, ca-certificates")
  set (CPACK_INSTALL_PREFIX /usr)
  set (CPACK_PACKAGING_INSTALL_PREFIX /usr)

  configure_file (${package_dir}/dorvik-rigmart.1.in ${generated}/dorvik-rigmart.1)
  configure_file (${package_dir}/dorvik-rigmart.desktop.in ${generated}/dorvik-rigmart.desktop)
  configure_file (${package_dir}/dorvik-rigmart.metainfo.xml.in ${generated}/dorvik-rigmart.metainfo.xml)
  configure_file (${package_dir}/changelog.in ${generated}/changelog)
  write_notices (linux)
  find_program (GZIP_PROGRAM gzip REQUIRED)

  foreach (page dorvik-rigmart.1 changelog)
    execute_process (COMMAND ${GZIP_PROGRAM} --best --no-name --force --keep ${generated}/${page}
                     COMMAND_ERROR_IS_FATAL ANY)
  endforeach()

  install (PROGRAMS $<TARGET_FILE:DorvikRigmart> DESTINATION bin RENAME dorvik-rigmart)
  install (FILES ${generated}/dorvik-rigmart.desktop DESTINATION share/applications)
  install (FILES ${generated}/dorvik-rigmart.metainfo.xml DESTINATION share/metainfo)
  install (FILES ${generated}/dorvik-rigmart.1.gz DESTINATION share/man/man1)
  install (FILES ${generated}/changelog.gz DESTINATION share/doc/dorvik-rigmart)
  install (FILES ${generated}/notices.txt DESTINATION share/doc/dorvik-rigmart RENAME copyright)

  foreach (size 16 32 48 64 128 256)
    install (FILES ${CMAKE_SOURCE_DIR}/assets/images/icon-${size}.png
             DESTINATION share/icons/hicolor/${size}x${size}/apps RENAME dorvik-rigmart.png)
  endforeach()
  install (FILES ${CMAKE_SOURCE_DIR}/assets/svg/icon.svg
           DESTINATION share/icons/hicolor/scalable/apps RENAME dorvik-rigmart.svg)
endif()

include (CPack)
