# Checks of what was written and of what was built; sourced by ./test.
# shellcheck shell=bash

# sources: the C++ files of the tree, one a line.
sources() {
  find . -path ./build -prune -o \( -name '*.h' -o -name '*.cpp' \) -print | sort
}

check_format() {
  sources | xargs clang-format --dry-run -Werror
}

# toolkit_exports: the names of toolkit/quillkit.def, sorted.
toolkit_exports() { sed -n 's/^ \{1,\}//p' toolkit/quillkit.def | sort; }

# same_names FILE EXPECTED FOUND: whether two sorted lists of names agree; if not, how they differ.
same_names() {
  if [ "$2" != "$3" ]; then
    echo "$1 does not export what it should (< missing, > too many):"
    diff <(echo "$2") <(echo "$3") | grep '^[<>]' || true
    return 1
  fi
  echo "$1 exports its $(echo "$3" | wc -l) names and no other"
}

# check_shared_object FILE: it exports the toolkit's functions and the event loop's two.
check_shared_object() {
  local expected found
  expected=$({ toolkit_exports; printf '%s\n' QuillkitDispatchEvents QuillkitEventDescriptor; } |
    sort)
  found=$(nm -D --defined-only "$1" | awk '{ print $3 }' | sort)
  same_names "$1" "$expected" "$found"
}

# check_dll FILE LIBRARY: it exports the toolkit's functions, which its import library offers, and
# imports Windows' own libraries alone.
check_dll() {
  local headers imports
  headers=$(i686-w64-mingw32-objdump -p "$1")
  same_names "$1" "$(toolkit_exports)" \
    "$(sed -n '/^\[Ordinal\/Name Pointer\] Table/,/^$/s/^\t\[ *[0-9]*\] //p' <<<"$headers" | sort)"
  same_names "$2" "$(toolkit_exports)" \
    "$(i686-w64-mingw32-nm "$2" 2>/dev/null | sed -n 's/^.* I __imp__//p' | sort)"
  imports=$(sed -n 's/^\tDLL Name: //p' <<<"$headers" | tr '[:upper:]' '[:lower:]' | sort -u)
  if grep -vxE 'advapi32.dll|kernel32.dll|msvcrt.dll|user32.dll|ws2_32.dll' <<<"$imports"; then
    echo "$1 imports these, which no Windows brings or which are new"
    return 1
  fi
  echo "$1 imports $(tr '\n' ' ' <<<"$imports")"
}
