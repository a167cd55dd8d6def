# Run by CPack on the files that go into the package for Debian: the manual page and the changelog
# packed as Debian wants them, and one modification time for all, so that the same commit gives the
# same package.
cmake_minimum_required(VERSION 3.25)

execute_process(
  COMMAND bash -c "set -e; docs=usr/share/doc/tarvik; mv $docs/CHANGELOG.md $docs/changelog
                   gzip -9 -n $docs/changelog usr/share/man/man6/tarvik.6
                   find . -exec touch --no-dereference --date=@\${SOURCE_DATE_EPOCH} {} +"
  WORKING_DIRECTORY ${CPACK_TEMPORARY_INSTALL_DIRECTORY} COMMAND_ERROR_IS_FATAL ANY)
