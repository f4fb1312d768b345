# Run by CPack between staging and packing: every file bears the time of the release, so that the same sources give the
# same package.
set(ENV{SOURCE_DATE_EPOCH} ${CPACK_MORVAK_RELEASE_EPOCH})
execute_process(COMMAND find ${CPACK_TEMPORARY_INSTALL_DIRECTORY}
                        -exec touch --no-dereference --date=@${CPACK_MORVAK_RELEASE_EPOCH} {} +
                COMMAND_ERROR_IS_FATAL ANY)
