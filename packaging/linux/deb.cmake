# Read by CPack before it packs; says what is different in a package for Debian.
if(NOT CPACK_GENERATOR STREQUAL "DEB")
  return()
endif()

# What `cmake --install` puts under /usr instead of the archive's files.
list(GET CPACK_INSTALL_CMAKE_PROJECTS 0 build_folder)
set(CPACK_INSTALL_CMAKE_PROJECTS "${build_folder};tarvik;Unspecified;/")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_PRE_BUILD_SCRIPTS ${CMAKE_CURRENT_LIST_DIR}/tidy_deb.cmake)

set(CPACK_PACKAGE_NAME tarvik)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_MAINTAINER "the Tarvik authors <authors@tarvik.invalid>")
set(CPACK_DEBIAN_PACKAGE_SECTION games)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON) # dpkg-shlibdeps finds out which libraries it needs
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS libgl1) # SDL loads it when it runs, where there is one
set(CPACK_DEBIAN_COMPRESSION_TYPE xz)
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "top-down car racing game against your own last laps")
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION
    "One car, six gears, two tracks of 10000 by 10000 cells, and the five laps
you drove before as ghosts beside you. It draws every pixel itself.")
