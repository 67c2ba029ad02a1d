# Where `cmake --install` puts files, below a prefix that can be moved as a whole. The components:
#
#   Runtime      the shared libraries
#   Development  headers, class library, CMake package, pkg-config, description of the functions,
#                bindings, examples
#   Simulator    the simulated appliance, outside the default library path
#   Tools        quillctl and quillbox, their manual pages, and the sample files of quillctl
#   Documents    README, CHANGELOG, SECURITY and docs/
include(CMakePackageConfigHelpers)
include(QuillkitHeaders)

set(headers ${CMAKE_INSTALL_INCLUDEDIR}/quillkit)
set(private ${CMAKE_INSTALL_LIBDIR}/quillkit)
set(package ${CMAKE_INSTALL_LIBDIR}/cmake/Quillkit)
set(shared ${CMAKE_INSTALL_DATADIR}/quillkit)

# The headers for programs, in the folders that they have in this tree.
quillkit_with_included(public_headers ${QUILLKIT_ENTRY_HEADERS})
foreach(header IN LISTS public_headers)
  cmake_path(GET header PARENT_PATH folder)
  install(FILES src/${header} DESTINATION ${headers}/${folder} COMPONENT Development)
endforeach()
install(FILES simulator/simulator.h DESTINATION ${headers}/simulator COMPONENT Simulator)
install(FILES quillbox/testing/quillbox_test.h quillbox/testing/quillbox_pytest.py
        DESTINATION ${shared}/testing COMPONENT Simulator)
install(FILES src/toolkit/api.json src/toolkit/api.schema.json DESTINATION ${shared}
        COMPONENT Development)
install(DIRECTORY examples bindings DESTINATION ${shared} COMPONENT Development
        PATTERN __pycache__ EXCLUDE)

# The libraries.
foreach(target Quillkit quillkit_classes IMSPAPI)
  target_compile_features(${target} INTERFACE cxx_std_20)
endforeach()
set_target_properties(quillkit_classes PROPERTIES EXPORT_NAME Classes)
set_target_properties(IMSPAPI PROPERTIES EXPORT_NAME Simulator)

# For a program built in this tree, such as an example: the same names and headers.
foreach(target Quillkit quillkit_c quillkit_classes IMSPAPI)
  get_target_property(name ${target} EXPORT_NAME)
  if(NOT name)
    set(name ${target})
  endif()
  add_library(Quillkit::${name} ALIAS ${target})
  target_include_directories(${target} INTERFACE
                             "$<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/src;${PROJECT_SOURCE_DIR}>")
endforeach()
if(WIN32)
  # A static archive cannot hold resources; they are a separate object.
  set(resources ${private}/quillkit_resources.o)
  install(FILES $<TARGET_OBJECTS:quillkit_resources> DESTINATION ${private} COMPONENT Development
          RENAME quillkit_resources.o)
  target_link_libraries(quillkit_classes INTERFACE
                        $<INSTALL_INTERFACE:$<INSTALL_PREFIX>/${resources}>
                        $<BUILD_INTERFACE:$<TARGET_OBJECTS:quillkit_resources>>)
endif()
install(TARGETS Quillkit quillkit_c EXPORT QuillkitTargets INCLUDES DESTINATION ${headers}
        RUNTIME COMPONENT Runtime
        LIBRARY COMPONENT Runtime NAMELINK_COMPONENT Development
        ARCHIVE COMPONENT Development)
if(WIN32)
  # For other linkers: the .def files, and import libraries in the form of MSVC.
  find_program(QUILLKIT_DLLTOOL llvm-dlltool REQUIRED)
  foreach(def src/toolkit/quillkit.def src/capi/quillkit_c.def)
    cmake_path(GET def STEM name)
    string(REPLACE quillkit.dll Quillkit.dll dll ${name}.dll)
    string(REPLACE .dll .lib library ${dll})
    add_custom_command(OUTPUT ${library} DEPENDS ${def} VERBATIM
                       COMMAND ${QUILLKIT_DLLTOOL} -m i386 -d ${PROJECT_SOURCE_DIR}/${def} -D ${dll}
                               -l ${library})
    list(APPEND msvc_libraries ${PROJECT_BINARY_DIR}/${library})
    string(REPLACE .dll .def installed ${dll})
    install(FILES ${def} DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT Development
            RENAME ${installed})
  endforeach()
  add_custom_target(msvc_libraries ALL DEPENDS ${msvc_libraries})
  install(FILES ${msvc_libraries} DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT Development)
endif()
install(TARGETS quillkit_classes EXPORT QuillkitTargets INCLUDES DESTINATION ${headers}
        ARCHIVE COMPONENT Development)
install(TARGETS IMSPAPI EXPORT QuillkitSimulatorTargets INCLUDES DESTINATION ${headers}
        RUNTIME DESTINATION ${private}/simulator COMPONENT Simulator
        LIBRARY DESTINATION ${private}/simulator COMPONENT Simulator
        ARCHIVE DESTINATION ${private}/simulator COMPONENT Simulator)

# find_package(Quillkit). While the major version is 0, a new minor version may change anything.
install(EXPORT QuillkitTargets NAMESPACE Quillkit:: DESTINATION ${package} COMPONENT Development)
install(EXPORT QuillkitSimulatorTargets NAMESPACE Quillkit:: DESTINATION ${package}
        COMPONENT Simulator)
if(PROJECT_VERSION_MAJOR EQUAL 0)
  set(compatibility SameMinorVersion)
else()
  set(compatibility SameMajorVersion)
endif()
write_basic_package_version_file(${PROJECT_BINARY_DIR}/QuillkitConfigVersion.cmake
                                 COMPATIBILITY ${compatibility})
install(FILES cmake/QuillkitConfig.cmake ${PROJECT_BINARY_DIR}/QuillkitConfigVersion.cmake
        DESTINATION ${package} COMPONENT Development)

# quillkit_pkg_config(name description libs [flags]): makes name.pc, with additional compiler flags.
function(quillkit_pkg_config name description libs)
  list(JOIN ARGN " " flags)
  set(folder ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
  file(RELATIVE_PATH prefix /${folder} /)
  string(REGEX REPLACE "/$" "" prefix ${prefix})
  configure_file(${PROJECT_SOURCE_DIR}/cmake/quillkit.pc.in ${name}.pc @ONLY)
  install(FILES ${CMAKE_CURRENT_BINARY_DIR}/${name}.pc DESTINATION ${folder}
          COMPONENT Development)
endfunction()
quillkit_pkg_config(quillkit "Controls a Quillbox network scanning appliance" -lQuillkit -std=c++20)
quillkit_pkg_config(quillkit_c "Quillkit for C and other languages" -lquillkit_c)
if(WIN32)
  quillkit_pkg_config(quillkit_classes "The class library of Quillkit"
                      "-lquillkit_classes \${prefix}/${resources} -lws2_32" -std=c++20)
else()
  quillkit_pkg_config(quillkit_classes "The class library of Quillkit" "-lquillkit_classes -ldl"
                      -std=c++20)
endif()

if(TARGET quillctl)
  file(RELATIVE_PATH libraries ${CMAKE_INSTALL_FULL_BINDIR} ${CMAKE_INSTALL_FULL_LIBDIR})
  # Also search for the server library beside quillctl and in the library folder.
  set_target_properties(quillctl quillbox PROPERTIES INSTALL_RPATH "$ORIGIN;$ORIGIN/${libraries}")
  install(TARGETS quillctl COMPONENT Tools)
  install(TARGETS quillbox EXPORT QuillkitToolTargets COMPONENT Tools)
  install(EXPORT QuillkitToolTargets NAMESPACE Quillkit:: DESTINATION ${package} COMPONENT Tools)
  install(FILES quillctl/quillctl.schema.json DESTINATION ${shared} COMPONENT Tools)
  install(DIRECTORY quillctl/data/ DESTINATION ${shared}/quillctl COMPONENT Tools
          FILES_MATCHING PATTERN "*.csv" PATTERN "*.ldif")
  if(NOT WIN32)
    install(FILES docs/quillctl.1 docs/quillbox.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1
            COMPONENT Tools)
  endif()
endif()

# In the same layout as here, so that links between the documents work.
set(documents ${CMAKE_INSTALL_DATADIR}/doc/quillkit)
install(FILES README.md CHANGELOG.md SECURITY.md DESTINATION ${documents} COMPONENT Documents)
install(DIRECTORY docs DESTINATION ${documents} COMPONENT Documents
        FILES_MATCHING PATTERN "*.md" PATTERN "*.svg" PATTERN reference EXCLUDE)
