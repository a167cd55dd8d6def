# Writes which version and commit the installed files are from.
cmake_policy(VERSION 3.25)

set(commit "an unknown commit")
execute_process(
  COMMAND git describe --always --abbrev=40 --exclude * --dirty=\ with\ changes
  WORKING_DIRECTORY ${SOURCE_DIR}
  OUTPUT_VARIABLE described
  OUTPUT_STRIP_TRAILING_WHITESPACE
  ERROR_QUIET)
if(described)
  set(commit "commit ${described}")
endif()
file(CONFIGURE OUTPUT "$ENV{DESTDIR}${CMAKE_INSTALL_PREFIX}/VERSION.txt"
     CONTENT "Tarvik @VERSION@\n@commit@\n" @ONLY NEWLINE_STYLE ${NEWLINES})
