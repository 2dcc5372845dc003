# SPDX-License-Identifier: MIT
# What `cpack` makes of the installed files: a package for Debian, and an archive to be unpacked anywhere.
set(CPACK_PACKAGE_NAME tavik-launcher)
set(CPACK_PACKAGE_VENDOR "The Tavik Launcher developers")
set(CPACK_PACKAGE_CONTACT "The Tavik Launcher developers <packages@tavik-launcher.example>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "ring of your applications at the pointer")
set(CPACK_PACKAGE_DESCRIPTION "Hold a shortcut anywhere on the desktop and a ring of icons opens at the
pointer: the applications you pinned, the ones that are running, the ones you
used last. Point at one, turn the ring with the arrow keys, or type its name,
and it starts; if it already runs, its window comes to the front.")
set(CPACK_PACKAGE_HOMEPAGE_URL ${TAVIK_HOME_URL})
set(CPACK_STRIP_FILES ON)
set(CPACK_VERBATIM_VARIABLES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
  OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
# Linux's own word for the processor, as in the names of AppImages.
set(CPACK_PACKAGE_FILE_NAME tavik-launcher-${PROJECT_VERSION}-${CMAKE_SYSTEM_PROCESSOR})
# What is packed is what was built and tested; nothing else is built for it.
set(CMAKE_SKIP_INSTALL_ALL_DEPENDENCY ON PARENT_SCOPE)

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION utils)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# Plugins of the toolkit, which the program does not link.
set(CPACK_DEBIAN_PACKAGE_DEPENDS "libqt6svg6, qt6-wayland")
if(TARGET TavikLauncherPlatformLinuxWayland)
  # Classes that the toolkit may change with each version. There is no symbol of them to be found out.
  string(APPEND CPACK_DEBIAN_PACKAGE_DEPENDS ", qt6-base-abi (= ${Qt6_VERSION})")
endif()
# What names the AppImages in the ring and draws their icons; the toolkit's dialogs in other languages.
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "squashfs-tools, qt6-translations-l10n")
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)

foreach(file PackageOfKind.cmake FinishPackage.cmake)
  configure_file(${file}.in ${CMAKE_CURRENT_BINARY_DIR}/${file} @ONLY)
endforeach()
set(CPACK_PROJECT_CONFIG_FILE ${CMAKE_CURRENT_BINARY_DIR}/PackageOfKind.cmake)
set(CPACK_PRE_BUILD_SCRIPTS ${CMAKE_CURRENT_BINARY_DIR}/FinishPackage.cmake)
set(CPACK_GENERATOR DEB TGZ)
include(CPack)
