# `cpack` makes one package of everything that is installed: a .deb on Linux, a .zip for Windows.
set(CPACK_PACKAGE_NAME quillkit)
set(CPACK_PACKAGE_VENDOR "Quillkit developers")
set(CPACK_PACKAGE_CONTACT "Quillkit developers <developers@quillkit.example>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "library and tools for controlling a Quillbox network scanner")
set(CPACK_PACKAGE_DESCRIPTION
    "Quillkit logs in to a Quillbox, a network scanning appliance, lists and
changes the soft keys of its front panel and their menu items, and fills
its address books from files that other programs export.

This package contains the library for C++ and C, the files needed to
build programs with it, the command quillctl, and a simulated appliance
for tests. It does not contain the appliance's own server library.")
set(CPACK_PACKAGE_DIRECTORY ${PROJECT_BINARY_DIR}/packages)
set(CPACK_STRIP_FILES ON)
set(CPACK_VERBATIM_VARIABLES ON)
set(CPACK_PRE_BUILD_SCRIPTS ${PROJECT_SOURCE_DIR}/cmake/QuillkitPackageTimes.cmake)
if(WIN32)
  set(CPACK_GENERATOR ZIP)
else()
  set(CPACK_GENERATOR DEB)
  set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
  set(CPACK_DEBIAN_PACKAGE_SECTION libdevel)
  set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
  set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
  file(WRITE ${PROJECT_BINARY_DIR}/debian/triggers "activate-noawait ldconfig\n")
  set(CPACK_DEBIAN_PACKAGE_CONTROL_EXTRA ${PROJECT_BINARY_DIR}/debian/triggers)
  list(PREPEND CPACK_PRE_BUILD_SCRIPTS ${PROJECT_SOURCE_DIR}/cmake/QuillkitDebianFiles.cmake)
endif()
include(CPack)
