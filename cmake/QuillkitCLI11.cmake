# CLI11::CLI11: header-only, usable on every system. Symbolic links give the headers a folder of
# their own: a cross build must not find this system's other headers.
find_path(QUILLKIT_CLI11_FOLDER CLI/CLI.hpp PATHS /usr/include NO_CMAKE_FIND_ROOT_PATH REQUIRED)
file(MAKE_DIRECTORY ${PROJECT_BINARY_DIR}/cli11)
file(CREATE_LINK ${QUILLKIT_CLI11_FOLDER}/CLI ${PROJECT_BINARY_DIR}/cli11/CLI SYMBOLIC)
add_library(CLI11::CLI11 INTERFACE IMPORTED)
target_include_directories(CLI11::CLI11 INTERFACE ${PROJECT_BINARY_DIR}/cli11)
