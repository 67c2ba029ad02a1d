# utf8cpp: header-only, in a folder of its own like CLI11.
find_path(QUILLKIT_UTF8_FOLDER utf8.h PATHS /usr/include/utf8cpp NO_DEFAULT_PATH
          NO_CMAKE_FIND_ROOT_PATH REQUIRED)
add_library(utf8cpp INTERFACE IMPORTED)
target_include_directories(utf8cpp INTERFACE ${QUILLKIT_UTF8_FOLDER})
