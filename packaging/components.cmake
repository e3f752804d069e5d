# Read by CPack once for each generator: which of the installed parts goes into its package.
if(CPACK_GENERATOR STREQUAL "DEB")
  set(part system)
  set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
else()
  set(part archive)
  set(CPACK_INCLUDE_TOPLEVEL_DIRECTORY OFF)
endif()
string(REPLACE ";ALL;" ";${part};" CPACK_INSTALL_CMAKE_PROJECTS "${CPACK_INSTALL_CMAKE_PROJECTS}")
