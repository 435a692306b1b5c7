# Two ways to hand the program on: a folder that runs where it is unpacked (tar.gz), and a Debian
# package, whose launcher makes each person a folder of their own.
#
#   cpack --config build/release/CPackConfig.cmake -B build/release
include(GNUInstallDirs)
set(packaging ${CMAKE_SOURCE_DIR}/packaging)

install(TARGETS mirav DESTINATION lib/mirav COMPONENT system)
install(DIRECTORY ${sample}/ DESTINATION share/mirav COMPONENT system)
install(PROGRAMS ${packaging}/mirav DESTINATION bin COMPONENT system)
install(FILES ${packaging}/mirav.desktop DESTINATION share/applications COMPONENT system)
install(FILES ${packaging}/mirav.svg DESTINATION share/icons/hicolor/scalable/apps COMPONENT system)

install(DIRECTORY ${sample}/ DESTINATION . COMPONENT portable EXCLUDE_FROM_ALL)
install(TARGETS mirav mirav-play DESTINATION . COMPONENT portable EXCLUDE_FROM_ALL)
install(FILES ${packaging}/README.txt DESTINATION . COMPONENT portable EXCLUDE_FROM_ALL)

set(CPACK_GENERATOR TGZ DEB)
set(CPACK_PACKAGE_NAME mirav)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_CONTACT "Mirav <mirav@localhost>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "Billing and book-keeping for small businesses that charge GST")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_ARCHIVE_COMPONENT_INSTALL ON)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_ARCHIVE_PORTABLE_FILE_NAME Mirav-${PROJECT_VERSION})
set(CPACK_DEBIAN_SYSTEM_PACKAGE_NAME mirav)
set(CPACK_DEBIAN_SYSTEM_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION office)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# What no library names: the window plugins, picture formats, and the fonts of screens and papers.
set(CPACK_DEBIAN_SYSTEM_PACKAGE_DEPENDS
  "qt6-qpa-plugins, qt6-image-formats-plugins, fonts-noto-core, fonts-crosextra-carlito, fonts-liberation, fonts-lohit-gujr, fonts-lohit-deva")
# What opens the papers, and what the launcher speaks through.
set(CPACK_DEBIAN_SYSTEM_PACKAGE_RECOMMENDS "xdg-utils, x11-utils")
set(CPACK_PROJECT_CONFIG_FILE ${CMAKE_SOURCE_DIR}/cmake/package_kinds.cmake)
include(CPack)
