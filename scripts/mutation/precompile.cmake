# The test library's headers are compiled once, and not with each file of the tests.
cmake_language(DEFER DIRECTORY ${CMAKE_SOURCE_DIR} CALL target_precompile_headers quillkit_tests
               PRIVATE <gmock/gmock.h> <algorithm> <filesystem> <fstream> <random>)
