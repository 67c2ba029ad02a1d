# nlohmann_json::nlohmann_json: header-only, in a folder of its own like CLI11.
find_path(QUILLKIT_JSON_FOLDER nlohmann/json.hpp PATHS /usr/include NO_CMAKE_FIND_ROOT_PATH REQUIRED)
file(MAKE_DIRECTORY ${PROJECT_BINARY_DIR}/json)
file(CREATE_LINK ${QUILLKIT_JSON_FOLDER}/nlohmann ${PROJECT_BINARY_DIR}/json/nlohmann SYMBOLIC)
add_library(nlohmann_json::nlohmann_json INTERFACE IMPORTED)
target_include_directories(nlohmann_json::nlohmann_json INTERFACE ${PROJECT_BINARY_DIR}/json)
