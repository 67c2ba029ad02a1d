# Quillkit::Quillkit     the product
# Quillkit::quillkit_c   the same functions for C and for languages that call C
# Quillkit::Classes      the class library, a static archive; do not link it with Quillkit::Quillkit
# Quillkit::Simulator    the simulated appliance, if it is installed
include(${CMAKE_CURRENT_LIST_DIR}/QuillkitTargets.cmake)
include(${CMAKE_CURRENT_LIST_DIR}/QuillkitSimulatorTargets.cmake OPTIONAL)

# Each target is also a component.
foreach(component IN LISTS Quillkit_FIND_COMPONENTS)
  if(TARGET Quillkit::${component})
    set(Quillkit_${component}_FOUND TRUE)
  elseif(Quillkit_FIND_REQUIRED_${component})
    set(Quillkit_FOUND FALSE)
    set(Quillkit_NOT_FOUND_MESSAGE "Quillkit::${component} is not installed")
  endif()
endforeach()
