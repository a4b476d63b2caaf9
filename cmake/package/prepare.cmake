# Run by CPack between the installation into its folder and the packing. See cmake/packages.cmake.

file (GLOB_RECURSE programs ${CPACK_TEMPORARY_DIRECTORY}/*.exe)
foreach (program IN LISTS programs)
  execute_process (COMMAND ${CPACK_RIGMART_SIGN} ${program} COMMAND_ERROR_IS_FATAL ANY)
endforeach()

execute_process (COMMAND find ${CPACK_TEMPORARY_DIRECTORY} -exec touch --no-dereference
                         --date=@${CPACK_RIGMART_RELEASE_EPOCH} {} +
                 COMMAND_ERROR_IS_FATAL ANY)
