# Writes the texts that only packing knows: which version and commit the files are from, and the
# licences of what the compiler has put in.
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

if(NOTICES)
  set(third_party "${CMAKE_INSTALL_PREFIX}/THIRD-PARTY.txt")
  execute_process(COMMAND ${SOURCE_DIR}/packaging/write-notices ${NOTICES}
                  OUTPUT_VARIABLE texts COMMAND_ERROR_IS_FATAL ANY)
  file(CONFIGURE OUTPUT "$ENV{DESTDIR}${third_party}" CONTENT "@texts@" @ONLY
       NEWLINE_STYLE ${NEWLINES})
endif()
