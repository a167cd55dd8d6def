# Run by CPack on the files that go into the package for Debian: the manual page packed as Debian
# wants it, and one time of change for all, so that the same commit gives the same package.
cmake_minimum_required(VERSION 3.25)

execute_process(
  COMMAND bash -c "find . -name '*.6' -exec gzip -9 -n {} + &&
                   find . -exec touch --no-dereference --date=@\${SOURCE_DATE_EPOCH} {} +"
  WORKING_DIRECTORY ${CPACK_TEMPORARY_INSTALL_DIRECTORY} COMMAND_ERROR_IS_FATAL ANY)
