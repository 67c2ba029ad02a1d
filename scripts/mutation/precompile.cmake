# Compiles the headers of the standard library and the test library once, instead of in each file.
set(precompiled_headers <algorithm> <cstring> <filesystem> <fstream> <functional> <map> <memory> <random> <span>
    <string> <vector>)
foreach(target quillkit_core IMSPAPI quillkit_c)
  cmake_language(EVAL CODE "cmake_language(DEFER DIRECTORY ${CMAKE_SOURCE_DIR} CALL
    target_precompile_headers ${target} PRIVATE ${precompiled_headers})")
endforeach()
cmake_language(DEFER DIRECTORY ${CMAKE_SOURCE_DIR} CALL target_precompile_headers quillkit_tests
               PRIVATE <gmock/gmock.h> ${precompiled_headers})
