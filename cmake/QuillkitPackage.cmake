# `cpack`: one package with everything that is installed, a .deb here and a .zip for Windows.
set(CPACK_PACKAGE_NAME quillkit)
set(CPACK_PACKAGE_VENDOR "Quillkit developers")
set(CPACK_PACKAGE_CONTACT "Quillkit developers <developers@quillkit.example>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "library and tools to program a Quillbox network scanner")
set(CPACK_PACKAGE_DESCRIPTION
    "Quillkit logs in to a Quillbox, a network scanning appliance, lists and
changes the soft keys of its front panel and the menu items under them,
and fills its address books from the exports of other programs.

This package has the library for C++ and for C, what is needed to build
with it, the command quillctl, and a simulated appliance to test with.
The appliance's own server library is not part of it.")
set(CPACK_PACKAGE_DIRECTORY ${PROJECT_BINARY_DIR}/packages)
set(CPACK_STRIP_FILES ON)
set(CPACK_VERBATIM_VARIABLES ON)
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
  set(CPACK_PRE_BUILD_SCRIPTS ${PROJECT_SOURCE_DIR}/cmake/QuillkitDebianFiles.cmake)
endif()
include(CPack)
