# cpack runs this script before it makes a package. With SOURCE_DATE_EPOCH (seconds since 1970), all
# packed files get that time, so that two builds of the same sources give the same package.
if(DEFINED ENV{SOURCE_DATE_EPOCH})
  execute_process(COMMAND find ${CPACK_TEMPORARY_INSTALL_DIRECTORY} -exec touch --no-dereference
                          --date=@$ENV{SOURCE_DATE_EPOCH} {} +
                  COMMAND_ERROR_IS_FATAL ANY)
endif()
