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
install(FILES ${packaging}/copyright DESTINATION share/doc/mirav COMPONENT system)
foreach(page changelog mirav.1)  # packed, without a name and a time, so that each build gives the same
  add_custom_command(OUTPUT ${CMAKE_BINARY_DIR}/packaging/${page}.gz
    COMMAND gzip -9nc ${packaging}/${page} > ${CMAKE_BINARY_DIR}/packaging/${page}.gz
    DEPENDS ${packaging}/${page} VERBATIM)
  list(APPEND pages ${CMAKE_BINARY_DIR}/packaging/${page}.gz)
endforeach()
file(MAKE_DIRECTORY ${CMAKE_BINARY_DIR}/packaging)
add_custom_target(pages ALL DEPENDS ${pages})
add_dependencies(folder pages)  # what cpack packs is what ./run builds
install(FILES ${CMAKE_BINARY_DIR}/packaging/changelog.gz DESTINATION share/doc/mirav COMPONENT system)
install(FILES ${CMAKE_BINARY_DIR}/packaging/mirav.1.gz DESTINATION share/man/man1 COMPONENT system)

install(DIRECTORY ${sample}/ DESTINATION . COMPONENT portable EXCLUDE_FROM_ALL)
install(TARGETS mirav mirav-play DESTINATION . COMPONENT portable EXCLUDE_FROM_ALL)
install(FILES ${packaging}/README.txt ${CMAKE_SOURCE_DIR}/LICENSE DESTINATION . COMPONENT portable EXCLUDE_FROM_ALL)
install(FILES ${CMAKE_SOURCE_DIR}/docs/player.md DESTINATION . RENAME PLAYER.txt COMPONENT portable EXCLUDE_FROM_ALL)
install(FILES ${CMAKE_SOURCE_DIR}/docs/gst.md DESTINATION . RENAME GST.txt COMPONENT portable EXCLUDE_FROM_ALL)

set(CPACK_GENERATOR TGZ DEB)
set(CPACK_PACKAGE_NAME mirav)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_CONTACT "Mirav maintainers <maintainers@mirav.example>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "billing and book-keeping for small businesses that charge GST")
# Its lines become those of the package's description.
set(CPACK_COMPONENT_SYSTEM_DESCRIPTION "Keeps the books of a small Indian business on one computer, without a server
and without the internet: bills, purchases, quotations, challans, receipts and
payments, typed by keyboard; a double-entry ledger, registers, GST statements
and outstanding bills, on paper, in PDF files and workbooks.

Each person gets a folder of books, made at the first start, which stays when
the package goes.")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_ARCHIVE_COMPONENT_INSTALL ON)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_ARCHIVE_PORTABLE_FILE_NAME Mirav-${PROJECT_VERSION})
set(CPACK_DEBIAN_SYSTEM_PACKAGE_NAME mirav)
set(CPACK_DEBIAN_SYSTEM_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION misc)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# What no library names: the window plugins, picture formats, and the fonts of screens and papers.
set(CPACK_DEBIAN_SYSTEM_PACKAGE_DEPENDS
  "qt6-qpa-plugins, qt6-image-formats-plugins, fonts-noto-core, fonts-crosextra-carlito, fonts-liberation, fonts-lohit-gujr, fonts-lohit-deva")
# What opens the papers, and what the launcher speaks through.
set(CPACK_DEBIAN_SYSTEM_PACKAGE_RECOMMENDS "xdg-utils, x11-utils")
set(CPACK_PROJECT_CONFIG_FILE ${CMAKE_SOURCE_DIR}/cmake/package_kinds.cmake)
include(CPack)
