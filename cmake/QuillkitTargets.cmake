# Settings and functions shared by all targets.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/bin)
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/bin)

find_package(Threads REQUIRED)

option(QUILLKIT_SANITIZE "Build with address and undefined-behaviour sanitizers" OFF)
option(QUILLKIT_SANITIZE_THREADS "Build with the thread sanitizer" OFF)
option(QUILLKIT_BUILD_FUZZ "Build and instrument everything for the fuzz targets (clang++ only)" OFF)

add_library(quillkit_options INTERFACE)
target_compile_options(quillkit_options INTERFACE -Wall -Wextra -Wpedantic -Wconversion -Wshadow
                       -Werror)
# GCC 12 reports overlaps in the code of std::string that cannot happen.
target_compile_options(quillkit_options INTERFACE $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict>)
# "bridge/agent.h" is in src/, "simulator/simulator.h" and "quillctl/session.h" at the top.
target_include_directories(quillkit_options INTERFACE ${PROJECT_SOURCE_DIR}/src
                           ${PROJECT_SOURCE_DIR})
if(QUILLKIT_SANITIZE)
  target_compile_options(quillkit_options INTERFACE -fsanitize=address,undefined
                         -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(quillkit_options INTERFACE -fsanitize=address,undefined)
endif()
if(QUILLKIT_SANITIZE_THREADS)
  target_compile_options(quillkit_options INTERFACE -fsanitize=thread -fno-omit-frame-pointer)
  target_link_options(quillkit_options INTERFACE -fsanitize=thread)
endif()

# Hardening; scripts/check_hardening verifies it in the built files. On Windows, the stack protector
# and the fortified functions would need another DLL.
if(WIN32)
  target_link_options(quillkit_options INTERFACE -Wl,--dynamicbase,--nxcompat)
  # A time in the file would make each build differ.
  target_link_options(quillkit_options INTERFACE -Wl,--no-insert-timestamp)
else()
  # In every build: lazy binding saves registers, which may hold a part of a password, on the stack.
  target_link_options(quillkit_options INTERFACE -Wl,-z,relro,-z,now)
endif()
if(NOT WIN32 AND NOT QUILLKIT_SANITIZE AND NOT QUILLKIT_SANITIZE_THREADS)
  set(optimised $<CONFIG:Release,RelWithDebInfo,MinSizeRel>)
  set(protections -fstack-protector-strong -U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=2)
  if(CMAKE_SYSTEM_PROCESSOR MATCHES "^(x86_64|AMD64|i[3-6]86)$")
    list(APPEND protections -fcf-protection)
  endif()
  target_compile_options(quillkit_options INTERFACE "$<${optimised}:${protections}>")
endif()

if(QUILLKIT_BUILD_FUZZ)
  target_compile_options(quillkit_options INTERFACE -fsanitize=fuzzer-no-link)
endif()

# quillkit_library(name TYPE [sources]) and quillkit_executable(name [sources]) make a target with the
# project's options. Folders add their sources to quillkit_core with target_sources().
function(quillkit_library name type)
  add_library(${name} ${type} ${ARGN})
  target_link_libraries(${name} PRIVATE quillkit_options)
endfunction()

function(quillkit_executable name)
  add_executable(${name} ${ARGN})
  target_link_libraries(${name} PRIVATE quillkit_options)
endfunction()

# quillkit_wrap_heap(target) routes the allocations of a program through the functions declared in
# tests/support/wrapped_heap.h, which the program defines.
function(quillkit_wrap_heap target)
  target_sources(${target} PRIVATE ${PROJECT_SOURCE_DIR}/tests/support/wrapped_heap.cpp)
  target_link_options(${target} PRIVATE
                      -Wl,--wrap=malloc,--wrap=calloc,--wrap=realloc,--wrap=free)
endfunction()

# quillkit_exports(target def [names]): the shared library exports the names in a .def file of its
# folder, on POSIX also the additional names, and nothing else.
function(quillkit_exports target def)
  if(WIN32)
    target_sources(${target} PRIVATE ${def})
    set_target_properties(${target} PROPERTIES PREFIX "" IMPORT_PREFIX "")
    return()
  endif()
  file(STRINGS ${def} exports REGEX "^[ \t]")
  list(TRANSFORM exports STRIP)
  list(APPEND exports ${ARGN})
  list(JOIN exports "; " exports)
  set(version_script ${CMAKE_CURRENT_BINARY_DIR}/${target}.map)
  file(CONFIGURE OUTPUT ${version_script} CONTENT "{ global: ${exports}; local: *; };\n")
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${def})
  target_link_options(${target} PRIVATE -Wl,--version-script=${version_script})
  set_property(TARGET ${target} APPEND PROPERTY LINK_DEPENDS ${version_script})
endfunction()

# quillkit_describe_types(target sources): in the build with sanitizers, the debug information of these
# sources of the current folder contains the types of the exported functions, for scripts/check_abi.
function(quillkit_describe_types target)
  if(QUILLKIT_SANITIZE)
    set_property(SOURCE ${ARGN} TARGET_DIRECTORY ${target} APPEND PROPERTY COMPILE_OPTIONS -g2)
  endif()
endfunction()

# quillkit_versioned(target): the shared library carries the project's version, on POSIX in its file
# names and on Windows as a resource. The resource is a target of its own because the resource
# compiler does not accept the options of the sources.
function(quillkit_versioned target)
  # While the major version is 0, a new minor version may change the interface.
  set(interface ${PROJECT_VERSION_MAJOR})
  if(interface EQUAL 0)
    string(APPEND interface .${PROJECT_VERSION_MINOR})
  endif()
  set_target_properties(${target} PROPERTIES VERSION ${PROJECT_VERSION} SOVERSION ${interface})
  if(WIN32)
    configure_file(${PROJECT_SOURCE_DIR}/src/platform/win32/version.rc.in ${target}_version.rc @ONLY)
    add_library(${target}_version OBJECT ${CMAKE_CURRENT_BINARY_DIR}/${target}_version.rc)
    target_sources(${target} PRIVATE $<TARGET_OBJECTS:${target}_version>)
  endif()
endfunction()
