# Quillkit::Quillkit     the product
# Quillkit::quillkit_c   the same functions for C and for languages that call C
# Quillkit::Classes      the class library, a static archive; do not link it with Quillkit::Quillkit
# Quillkit::Simulator    the simulated appliance, if it is installed
# Quillkit::quillbox     the command quillbox, if it is installed
# Quillkit_TESTING_DIR   the folder of the fixtures for tests on the simulated appliance
include(${CMAKE_CURRENT_LIST_DIR}/QuillkitTargets.cmake)
include(${CMAKE_CURRENT_LIST_DIR}/QuillkitSimulatorTargets.cmake OPTIONAL)
include(${CMAKE_CURRENT_LIST_DIR}/QuillkitToolTargets.cmake OPTIONAL)
foreach(prefix ../../.. ../../../..)
  if(EXISTS ${CMAKE_CURRENT_LIST_DIR}/${prefix}/share/quillkit/testing)
    get_filename_component(Quillkit_TESTING_DIR
                           ${CMAKE_CURRENT_LIST_DIR}/${prefix}/share/quillkit/testing ABSOLUTE)
  endif()
endforeach()

# Each target is also a component.
foreach(component IN LISTS Quillkit_FIND_COMPONENTS)
  if(TARGET Quillkit::${component})
    set(Quillkit_${component}_FOUND TRUE)
  elseif(Quillkit_FIND_REQUIRED_${component})
    set(Quillkit_FOUND FALSE)
    set(Quillkit_NOT_FOUND_MESSAGE "Quillkit::${component} is not installed")
  endif()
endforeach()
