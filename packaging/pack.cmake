# Run by CPack: packs the staged files with names in order, one modification time for all and no
# owner, so that the same commit gives the same archive, byte for byte.
cmake_minimum_required(VERSION 3.25)

if(NOT DEFINED ENV{SOURCE_DATE_EPOCH})
  message(FATAL_ERROR "SOURCE_DATE_EPOCH, the time of change of all files, is not set")
endif()
set(name ${CPACK_PACKAGE_FILE_NAME})
if(name MATCHES "windows|web")
  set(archive ${CPACK_PACKAGE_DIRECTORY}/${name}.zip)
  set(pack "find ${name} -exec touch --no-dereference --date=@\${SOURCE_DATE_EPOCH} {} + &&
            find ${name} | sort | TZ=UTC zip -X -9 -q -@ '${archive}'")
else()
  set(archive ${CPACK_PACKAGE_DIRECTORY}/${name}.tar.gz)
  set(pack "tar --create --format=ustar --sort=name --mtime=@\${SOURCE_DATE_EPOCH} \
                --owner=0 --group=0 --numeric-owner ${name} | gzip -9 -n > '${archive}'")
endif()

get_filename_component(above ${CPACK_TEMPORARY_DIRECTORY} DIRECTORY)
file(REMOVE ${archive})
execute_process(COMMAND bash -c "set -o pipefail; export LC_ALL=C; ${pack}"
                WORKING_DIRECTORY ${above} COMMAND_ERROR_IS_FATAL ANY)
set(CPACK_EXTERNAL_BUILT_PACKAGES ${archive})
