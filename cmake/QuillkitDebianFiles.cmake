# cpack runs this script before it makes a .deb. It adds the files that Debian requires, and
# compresses the changelog and the manual page.
set(share ${CPACK_TEMPORARY_INSTALL_DIRECTORY}/usr/share)
set(documents ${share}/doc/${CPACK_PACKAGE_NAME})
string(TIMESTAMP now "%a, %d %b %Y %H:%M:%S +0000" UTC)

file(WRITE ${documents}/copyright "Quillkit

Copyright by the Quillkit developers.

No licence has been chosen yet.
")
file(WRITE ${documents}/changelog
     "${CPACK_PACKAGE_NAME} (${CPACK_PACKAGE_VERSION}) unstable; urgency=medium

  * See CHANGELOG.md for the changes.

 -- ${CPACK_PACKAGE_CONTACT}  ${now}
")
execute_process(COMMAND gzip -9n ${documents}/changelog ${share}/man/man1/quillctl.1
                        ${share}/man/man1/quillbox.1
                COMMAND_ERROR_IS_FATAL ANY)
