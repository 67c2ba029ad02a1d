# Checks of sources and of built files; sourced by ./test.
# shellcheck shell=bash

# sources: prints the C++ and C files of the tree, one per line.
sources() {
  find . -path ./build -prune -o \( -name '*.h' -o -name '*.cpp' -o -name '*.c' \) -print | sort
}

check_format() {
  sources | xargs clang-format --dry-run -Werror
}

# def_names FILE: prints the names in a .def file, sorted.
def_names() { sed -n 's/^[[:blank:]]\{1,\}//p' "$1" | sort; }

# same_names FILE EXPECTED FOUND: compares two sorted lists of names and prints the differences.
same_names() {
  if [ "$2" != "$3" ]; then
    echo "$1 exports other names than expected (< missing, > unexpected):"
    diff <(echo "$2") <(echo "$3") | grep '^[<>]' || true
    return 1
  fi
  echo "$1 exports exactly its $(echo "$3" | wc -l) names"
}

# check_shared_object FILE DEF [names]: it exports the names in the .def file and the additional names.
check_shared_object() {
  local file=$1 def=$2 expected found
  shift 2
  expected=$({ def_names "$def"; printf '%s\n' "$@"; } | sed '/^$/d' | sort)
  found=$(nm -D --defined-only "$file" | awk '{ print $3 }' | sort)
  same_names "$file" "$expected" "$found"
}

# check_side_effects FILE: a library imports no function by which it would change the process (its
# signals, threads, child processes, environment, locale, folder or file mode mask), end it, or open a
# network connection.
check_side_effects() {
  local names=(_exit _Exit exit quick_exit raise kill tgkill pthread_kill signal sigaction sigprocmask
    pthread_sigmask sigaltstack alarm setitimer 'fork|vfork|clone|system|popen' 'posix_spawnp?|exec[lv][pe]*'
    'pthread_create|thrd_create|_ZNSt6thread15.*' 'setenv|unsetenv|putenv|clearenv'
    'setlocale|uselocale|_ZNSt6locale6global.*' 'f?chdir|_ZNSt10filesystem12current_pathERK.*' umask
    'socket|socketpair|connect|bind|listen')
  if nm -D --undefined-only "$1" | sed 's/^ *[A-Za-z] //; s/@.*//' |
    grep -xE "$(IFS='|' && echo "${names[*]}")"; then
    echo "$1 imports these functions, which change the process of the application"
    return 1
  fi
  echo "$1 imports no function that changes the process"
}

# check_shared_objects FOLDER: checks the shared libraries that applications link.
check_shared_objects() {
  local event_loop=(QuillkitDispatchEvents QuillkitEventDescriptor)
  check_shared_object "$1/libQuillkit.so" src/toolkit/quillkit.def "${event_loop[@]}" &&
    check_side_effects "$1/libQuillkit.so" &&
    check_shared_object "$1/libquillkit_c.so" src/capi/quillkit_c.def "${event_loop[@]}" &&
    check_side_effects "$1/libquillkit_c.so"
}

# check_hardening FOLDER: checks that the five libraries and programs in a folder are hardened.
check_hardening() {
  local files
  mapfile -t files < <(find "$1" -type f \( -name 'libQuillkit.so*' -o -name 'libquillkit_c.so*' \
    -o -name libIMSPAPI.so -o -name quillctl -o -name quillbox -o -iname '*.dll' -o -name quillctl.exe -o -name quillbox.exe \))
  if [ ${#files[@]} != 5 ]; then
    echo "$1 should hold five libraries and programs, but holds: ${files[*]}"
    return 1
  fi
  scripts/check_hardening "${files[@]}"
}

# check_dll FILE LIBRARY DEF: the DLL and its import library export exactly the names in the .def
# file, and the DLL imports only libraries of Windows.
check_dll() {
  local headers
  headers=$(i686-w64-mingw32-objdump -p "$1")
  same_names "$1" "$(def_names "$3")" \
    "$(sed -n '/^\[Ordinal\/Name Pointer\] Table/,/^$/s/^\t\[ *[0-9]*\] //p' <<<"$headers" | sort)"
  same_names "$2" "$(def_names "$3")" \
    "$(i686-w64-mingw32-nm "$2" 2>/dev/null | sed -n 's/^.* I __imp__//p' | sort)"
  check_imports "$1"
}

# check_imports FILE: a Windows file imports only libraries of Windows.
check_imports() {
  local imports
  imports=$(i686-w64-mingw32-objdump -p "$1" | sed -n 's/^\tDLL Name: //p' |
    tr '[:upper:]' '[:lower:]' | sort -u)
  if grep -vxE "(advapi32|kernel32|msvcrt|user32|ws2_32).dll" <<<"$imports"; then
    echo "$1 imports these libraries, which are not on the list of expected ones"
    return 1
  fi
  echo "$1 imports $(tr '\n' ' ' <<<"$imports")"
}

# check_headers CC CXX: each exported header compiles alone without warnings; the C header also in
# C99.
check_headers() {
  local header strict=(-Wall -Wextra -Wpedantic -Wconversion -Werror -fsyntax-only -Isrc)
  for header in toolkit/quillkit.h capi/quillkit_c.h; do
    "$2" -std=c++20 "${strict[@]}" -x c++ -include "$header" /dev/null || return 1
  done
  "$1" -std=c99 "${strict[@]}" -Wstrict-prototypes -x c -include capi/quillkit_c.h /dev/null ||
    return 1
  echo "$2 and $1 compile the exported headers"
}

# check_interface COMPILER...: a compiler for 32 bits accepts the table of signatures, sizes and offsets
# of both libraries. scripts/make_bindings writes the table.
check_interface() {
  local table=src/capi/api_assertions.cpp
  echo 'static_assert(sizeof(void*) == 4);' |
    "$@" -std=c++20 -fsyntax-only -Isrc -x c++ -include "$table" - || return 1
  echo "$1 ${2-} accepts $(grep -c '^static_assert' "$table") assertions about the interfaces"
}

# check_seeds FOLDER: runs each fuzz target, built in a build folder, with its seeds.
check_seeds() {
  local targets=(fuzz/seeds/*) target status
  cmake --build "$1" --target quillkit_fuzz || return 1
  for target in "${targets[@]##*/}"; do
    status=0
    "$1/fuzz/fuzz_$target" "fuzz/seeds/$target" || status=$?
    echo "status $status"
  done | compare_seeds "${targets[@]##*/}"
}

# check_seeds_exe FOLDER: the same for Windows, in one run of Wine, without the target `settings`: its
# files and links in a folder exist only on POSIX.
check_seeds_exe() {
  local targets target
  mapfile -t targets < <(find fuzz/seeds -mindepth 1 -maxdepth 1 ! -name settings -printf '%f\n' | sort)
  cmake --build "$1" --target quillkit_fuzz || return 1
  rm -rf "$1/fuzz/seeds"
  cp -rL fuzz/seeds "$1/fuzz"
  for target in "${targets[@]}"; do
    printf '@fuzz_%s.exe seeds\\%s\r\n@echo status %%errorlevel%%\r\n' "$target" "$target"
  done >"$1/fuzz/seeds.bat"
  printf '@exit 0\r\n' >>"$1/fuzz/seeds.bat"
  in_wine "$1/fuzz" cmd /c seeds.bat </dev/null | tr -d '\r' | compare_seeds "${targets[@]}"
}

# compare_seeds TARGET...: compares standard input with the names of the seeds of these targets.
compare_seeds() {
  local target expected
  expected=$(for target; do LC_ALL=C ls "fuzz/seeds/$target" && echo "status 0"; done)
  if ! diff <(echo "$expected") -; then
    echo "fuzz targets fail, each at its first missing seed (< expected, > actual)"
    return 1
  fi
  echo "seeds: $(grep -vc '^status' <<<"$expected") inputs of $# targets"
}

# check_threads SECONDS: calls quillkit_c from several threads under the thread sanitizer.
check_threads() {
  configure threads build/threads
  cmake --build build/threads --target quillkit_c_threads
  build/threads/bin/quillkit_c_threads "$1"
}

# check_32_bits: builds the tests for 32 bits with the sanitizers and runs them. On a machine that runs
# no 32-bit programs, says so and succeeds.
check_32_bits() {
  local probe
  install_packages g++-multilib lib32asan8 lib32ubsan1 googletest
  check_interface g++ -m32
  check_interface clang++ -m32
  probe=$(mktemp -d)
  if ! { echo 'int main() { return 0; }' | g++ -m32 -x c++ - -o "$probe/probe" && "$probe/probe"; } 2>/dev/null; then
    rm -rf "$probe"
    echo "*** THIS MACHINE RUNS NO 32-BIT PROGRAMS. The tests did not run at 32 bits. ***"
    return 0
  fi
  rm -rf "$probe"
  build sanitizers32 build/sanitizers32 -D QUILLKIT_BUILD_EXAMPLES=OFF
  run_tests "32 bits, tests" build/sanitizers32/bin/quillkit_tests
  run_tests "32 bits, memory" build/sanitizers32/bin/quillkit_memory_tests
  check_seeds build/sanitizers32
}
