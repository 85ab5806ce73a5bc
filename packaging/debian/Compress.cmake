# Before it is packed: what Debian wants compressed is compressed as it wants it, without a time or a name.
file(GLOB files ${CPACK_TEMPORARY_DIRECTORY}/usr/share/man/man*/*.[1-8]
    ${CPACK_TEMPORARY_DIRECTORY}/usr/share/doc/ovrin/changelog*)
execute_process(COMMAND gzip -9n ${files} COMMAND_ERROR_IS_FATAL ANY)
