# Read by CPack for each kind of package: which layout it holds.
if(CPACK_GENERATOR STREQUAL "DEB")
  set(layout system)
  set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
else()
  set(layout portable)
endif()
string(REPLACE ";ALL;" ";${layout};" CPACK_INSTALL_CMAKE_PROJECTS "${CPACK_INSTALL_CMAKE_PROJECTS}")
