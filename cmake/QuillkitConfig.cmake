# Quillkit::Quillkit     the product
# Quillkit::quillkit_c   the same functions for C and what calls C
# Quillkit::Classes      the class library, an archive; not beside Quillkit::Quillkit
# Quillkit::Simulator    the simulated appliance, where it is installed
include(${CMAKE_CURRENT_LIST_DIR}/QuillkitTargets.cmake)
include(${CMAKE_CURRENT_LIST_DIR}/QuillkitSimulatorTargets.cmake OPTIONAL)
