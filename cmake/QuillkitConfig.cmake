# Quillkit::Quillkit     the product
# Quillkit::quillkit_c   the same functions for C and what calls C
# Quillkit::Classes      the class library, an archive; not beside Quillkit::Quillkit
# Quillkit::Simulator    the simulated appliance, where it is installed
include(${CMAKE_CURRENT_LIST_DIR}/QuillkitTargets.cmake)
include(${CMAKE_CURRENT_LIST_DIR}/QuillkitSimulatorTargets.cmake OPTIONAL)

# Each of them is a component, too.
foreach(component IN LISTS Quillkit_FIND_COMPONENTS)
  if(TARGET Quillkit::${component})
    set(Quillkit_${component}_FOUND TRUE)
  elseif(Quillkit_FIND_REQUIRED_${component})
    set(Quillkit_FOUND FALSE)
    set(Quillkit_NOT_FOUND_MESSAGE "Quillkit::${component} is not installed")
  endif()
endforeach()
