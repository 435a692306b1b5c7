# Which parts go into which kind of package; read once per generator.
if(CPACK_GENERATOR STREQUAL "DEB")
  set(CPACK_COMPONENTS_ALL system)
else()
  set(CPACK_COMPONENTS_ALL portable)
  set(CPACK_PACKAGING_INSTALL_PREFIX /Mirav)
endif()
