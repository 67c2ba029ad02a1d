# GTest::gtest and GTest::gmock: the system's libraries, or for another system than this one the
# sources that the same package brings.
if(CMAKE_CROSSCOMPILING)
  set(INSTALL_GTEST OFF)
  add_subdirectory(/usr/src/googletest ${PROJECT_BINARY_DIR}/googletest EXCLUDE_FROM_ALL)
  if(NOT TARGET GTest::gmock)
    add_library(GTest::gmock ALIAS gmock)
  endif()
else()
  find_package(GTest REQUIRED)
endif()
