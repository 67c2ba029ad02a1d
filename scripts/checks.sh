# Checks of what was written and of what was built; sourced by ./test.
# shellcheck shell=bash

# sources: the C++ and C files of the tree, one a line.
sources() {
  find . -path ./build -prune -o \( -name '*.h' -o -name '*.cpp' -o -name '*.c' \) -print | sort
}

check_format() {
  sources | xargs clang-format --dry-run -Werror
}

# def_names FILE: the names of a .def file, sorted.
def_names() { sed -n 's/^[[:blank:]]\{1,\}//p' "$1" | sort; }

# same_names FILE EXPECTED FOUND: whether two sorted lists of names agree; if not, how they differ.
same_names() {
  if [ "$2" != "$3" ]; then
    echo "$1 does not export what it should (< missing, > too many):"
    diff <(echo "$2") <(echo "$3") | grep '^[<>]' || true
    return 1
  fi
  echo "$1 exports its $(echo "$3" | wc -l) names and no other"
}

# check_shared_object FILE DEF [names]: it exports what the .def file names, and the further names.
check_shared_object() {
  local file=$1 def=$2 expected found
  shift 2
  expected=$({ def_names "$def"; printf '%s\n' "$@"; } | sed '/^$/d' | sort)
  found=$(nm -D --defined-only "$file" | awk '{ print $3 }' | sort)
  same_names "$file" "$expected" "$found"
}

# check_shared_objects FOLDER: those of this tree that applications link.
check_shared_objects() {
  local event_loop=(QuillkitDispatchEvents QuillkitEventDescriptor)
  check_shared_object "$1/libQuillkit.so" src/toolkit/quillkit.def "${event_loop[@]}"
  check_shared_object "$1/libquillkit_c.so" src/capi/quillkit_c.def "${event_loop[@]}"
}

# check_hardening FOLDER: the four libraries and programs of this tree in a folder are hardened.
check_hardening() {
  local files
  mapfile -t files < <(find "$1" -type f \( -name 'libQuillkit.so*' -o -name 'libquillkit_c.so*' \
    -o -name libIMSPAPI.so -o -name quillctl -o -iname '*.dll' -o -name quillctl.exe \))
  if [ ${#files[@]} != 4 ]; then
    echo "$1 lacks some of the four libraries and programs of this tree: ${files[*]}"
    return 1
  fi
  scripts/check_hardening "${files[@]}"
}

# check_dll FILE LIBRARY DEF: it exports what the .def file names, which its import library offers,
# and imports Windows' own libraries alone.
check_dll() {
  local headers
  headers=$(i686-w64-mingw32-objdump -p "$1")
  same_names "$1" "$(def_names "$3")" \
    "$(sed -n '/^\[Ordinal\/Name Pointer\] Table/,/^$/s/^\t\[ *[0-9]*\] //p' <<<"$headers" | sort)"
  same_names "$2" "$(def_names "$3")" \
    "$(i686-w64-mingw32-nm "$2" 2>/dev/null | sed -n 's/^.* I __imp__//p' | sort)"
  check_imports "$1"
}

# check_imports FILE: a file for Windows imports Windows' own libraries alone.
check_imports() {
  local imports
  imports=$(i686-w64-mingw32-objdump -p "$1" | sed -n 's/^\tDLL Name: //p' |
    tr '[:upper:]' '[:lower:]' | sort -u)
  if grep -vxE "(advapi32|kernel32|msvcrt|user32|ws2_32).dll" <<<"$imports"; then
    echo "$1 imports these, which no Windows brings or which are new"
    return 1
  fi
  echo "$1 imports $(tr '\n' ' ' <<<"$imports")"
}

# check_headers CC CXX: each exported header is complete by itself and good under all warnings, and
# that for C in C99 too.
check_headers() {
  local header strict=(-Wall -Wextra -Wpedantic -Wconversion -Werror -fsyntax-only -Isrc)
  for header in toolkit/quillkit.h capi/quillkit_c.h; do
    "$2" -std=c++20 "${strict[@]}" -x c++ -include "$header" /dev/null || return 1
  done
  "$1" -std=c99 "${strict[@]}" -Wstrict-prototypes -x c -include capi/quillkit_c.h /dev/null ||
    return 1
  echo "$2 and $1 take the exported headers"
}

# check_threads SECONDS: quillkit_c takes calls of several threads, as the thread sanitizer sees it.
check_threads() {
  configure threads build/threads
  cmake --build build/threads --target quillkit_c_threads
  build/threads/bin/quillkit_c_threads "$1"
}
