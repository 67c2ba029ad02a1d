# Checks of installed and packed files from outside the tree; sourced by ./test.
#
# The programs in tests/package/ represent an application. They are built in separate folders against
# an installed tree that was moved after its installation.
# shellcheck shell=bash

quillkit_version=$(sed -n 's/^#define QUILLKIT_VERSION_[A-Z]* \([0-9]\)/\1/p' src/toolkit/version.h |
  paste -sd .)

# check_packages FOLDER: checks what a native build folder installs and packs.
check_packages() (
  scratch=$(mktemp -d)
  trap 'rm -rf "$scratch"' EXIT
  cmake --install "$1" --prefix "$scratch/installed" >/dev/null &&
    mv "$scratch/installed" "$scratch/moved" &&
    check_names_no_folder "$scratch/moved" "$scratch" &&
    check_hardening "$scratch/moved" &&
    build_outside "$scratch/moved" "$scratch" cc c++ &&
    run_outside "$scratch/moved" "$scratch/by_cmake/build" toolkit quillkit_c classes simulated &&
    run_outside "$scratch/moved" "$scratch/by_pkg_config" toolkit quillkit_c classes &&
    check_installed_quillctl "$scratch/moved" &&
    scripts/check_declarations "$scratch/moved" &&
    build_installed_examples "$scratch/moved" "$scratch" &&
    with_simulator "$scratch/moved" check_examples "$scratch/examples" &&
    check_deb "$1" "$scratch"
)

# check_zip FOLDER: checks what a Windows build folder packs. The programs are built but not run.
check_zip() (
  scratch=$(mktemp -d)
  trap 'rm -rf "$scratch"' EXIT
  name=quillkit-$quillkit_version-win32
  pack "$1" "$name.zip" && unzip -q "$1/packages/$name.zip" -d "$scratch" &&
    check_names_no_folder "$scratch/$name" "$scratch" &&
    check_hardening "$scratch/$name" &&
    check_zip_files "$scratch/$name" &&
    build_outside "$scratch/$name" "$scratch" i686-w64-mingw32-gcc-posix \
      i686-w64-mingw32-g++-posix -D CMAKE_TOOLCHAIN_FILE="$PWD/cmake/i686-mingw.cmake" &&
    check_texts "$scratch/by_cmake/build/classes.exe" &&
    check_texts "$scratch/by_pkg_config/classes.exe" &&
    build_without_runtime "$scratch/$name" "$1/bin/without_runtime.exe" &&
    build_installed_examples "$scratch/$name" "$scratch" \
      -D CMAKE_TOOLCHAIN_FILE="$PWD/cmake/i686-mingw.cmake" &&
    echo "$name.zip passes all checks"
)

# folder_of PREFIX NAME: prints the folder below the prefix that contains the file of this name.
folder_of() {
  find "$1" -name "$2" -printf '%h\n' -quit | grep .
}

# check_names_no_folder PREFIX OTHER: no installed file contains the path of this tree or of OTHER.
check_names_no_folder() {
  if grep -rlF -e "$PWD/" -e "$2/" "$1"; then
    echo "these installed files contain the path of a folder of this machine"
    return 1
  fi
}

# check_language PREFIX CXX: with C++17, each header of the main folders compiles, or fails with
# only the two errors of base/language.h, which request C++20.
check_language() {
  local header messages include=$1/include/quillkit
  while read -r header; do
    messages=$("$2" -std=c++17 -fsyntax-only -I"$include" -x c++ "$header" 2>&1) && continue
    if [ "$(grep -c 'error:' <<<"$messages")" != 2 ] ||
      ! grep -q 'error:.*"Quillkit needs C++20: compile' <<<"$messages"; then
      printf '%s: with C++17, the only message should be the request for C++20, but:\n%s\n' "$header" "$messages"
      return 1
    fi
  done < <(find "$include"/{toolkit,import,simulator,books,views} -name "*.h")
}

# build_outside PREFIX SCRATCH CC CXX [cmake options]: checks that each header compiles alone. Then
# builds the programs with find_package and with pkg-config; both must raise C++17 to C++20.
build_outside() {
  local prefix=$1 scratch=$2 cc=$3 cxx=$4 include=$1/include/quillkit name flags
  local -A by_pkg_config=([toolkit]=quillkit [quillkit_c]=quillkit_c [classes]=quillkit_classes)
  shift 4
  check_each_header "$include" "$cxx" && check_language "$prefix" "$cxx" || return 1

  cp -r tests/package "$scratch/by_cmake"
  cmake -G Ninja -S "$scratch/by_cmake" -B "$scratch/by_cmake/build" --log-level=WARNING \
    -D CMAKE_PREFIX_PATH="$prefix" -D QUILLKIT_VERSION="$quillkit_version" \
    -D CMAKE_CXX_STANDARD=17 "$@" >/dev/null &&
    cmake --build "$scratch/by_cmake/build" -- --quiet || return 1

  mkdir "$scratch/by_pkg_config"
  for name in "${!by_pkg_config[@]}"; do
    read -ra flags < <(PKG_CONFIG_LIBDIR=$(folder_of "$prefix" quillkit.pc) pkg-config --cflags \
      --libs "${by_pkg_config[$name]} = $quillkit_version")
    if [ "$name" = quillkit_c ]; then
      "$cc" -std=c99 -Werror "tests/package/$name.c" "${flags[@]}" \
        -o "$scratch/by_pkg_config/$name"
    else
      "$cxx" -std=c++17 "tests/package/$name.cpp" "${flags[@]}" \
        -o "$scratch/by_pkg_config/$name"
    fi || return 1
  done
  echo "programs outside the tree are built by find_package and by pkg-config"
}

# check_each_header INCLUDE CXX: checks that each installed header compiles alone.
check_each_header() {
  find "$1" -name '*.h' -printf '%P\0' | xargs -0 -n 1 -P "$(nproc)" \
    "$2" -std=c++20 -Wall -Wextra -Werror -fsyntax-only -I"$1" -x c++ /dev/null -include &&
    echo "each installed header compiles alone"
}

# build_installed_examples PREFIX SCRATCH [cmake options]: builds them in SCRATCH/examples.
build_installed_examples() {
  cmake -G Ninja -S "$1/share/quillkit/examples" -B "$2/examples" --log-level=WARNING \
    -D CMAKE_PREFIX_PATH="$1" "${@:3}" >/dev/null && cmake --build "$2/examples" -- --quiet &&
    echo "the installed examples are built outside the tree"
}

# with_simulator PREFIX COMMAND...: runs a command that finds the installed simulator.
with_simulator() {
  LD_LIBRARY_PATH=$(folder_of "$1" libIMSPAPI.so) "${@:2}"
}

# run_outside PREFIX FOLDER PROGRAM...: runs programs and compares their output.
run_outside() {
  local prefix=$1 folder=$2 path program
  local -A shown=([toolkit]="3 keys" [quillkit_c]="3 keys" [classes]="3 keys, 13 classes"
    [simulated]="4 keys")
  path=$(folder_of "$prefix" libQuillkit.so):$(folder_of "$prefix" libIMSPAPI.so)
  shift 2
  for program in "$@"; do
    diff <(echo "$program $quillkit_version: ${shown[$program]}") \
      <(LD_LIBRARY_PATH=$path "$folder/$program") || return 1
  done
  echo "programs outside the tree print the expected output: $*"
}

# check_installed_quillctl PREFIX: it prints its version, uses the simulator only on request, and
# finds its files.
check_installed_quillctl() {
  diff <(echo "quillctl $quillkit_version") \
    <(with_simulator "$1" "$1/bin/quillctl" --version) &&
    check_no_server_library "$1/bin/quillctl" &&
    with_simulator "$1" check_demo "$1/bin/quillctl" &&
    with_simulator "$1" check_python_example "$(folder_of "$1" libquillkit_c.so)"
}

# pack FOLDER FILE: makes the package FILE in the packages folder of a build folder.
pack() {
  rm -rf "$1/packages"
  if ! cpack --config "$1/CPackConfig.cmake" >"$1/cpack.log" 2>&1 || [ ! -f "$1/packages/$2" ]; then
    cat "$1/cpack.log"
    echo "cpack did not make $2"
    return 1
  fi
}

# check_deb FOLDER SCRATCH: packs a build folder as a .deb and checks what the package contains.
check_deb() {
  local name deb file root=$2/root
  name=quillkit_${quillkit_version}_$(dpkg --print-architecture).deb
  deb=$1/packages/$name
  pack "$1" "$name" && dpkg-deb -x "$deb" "$root" || return 1
  diff <(echo "$quillkit_version") <(dpkg-deb -f "$deb" Version) || return 1
  if ! dpkg-deb -f "$deb" Depends | grep 'libc6.*libstdc++6' >/dev/null ||
    ! grep -qx 'No licence has been chosen yet.' "$root/usr/share/doc/quillkit/copyright"; then
    echo "$name: unexpected dependencies or copyright"
    return 1
  fi
  for file in api.json api.schema.json bindings/python/pyproject.toml bindings/csharp/Native.cs; do
    [ -f "$root/usr/share/quillkit/$file" ] || { echo "$name lacks $file"; return 1; }
  done
  check_hardening "$root" && check_installed_quillctl "$root/usr" && echo "$name passes all checks"
}

# build_without_runtime PREFIX PROGRAM: clang for MSVC links a program with the import library.
build_without_runtime() {
  clang --target=i686-pc-windows-msvc -std=c99 -Wall -Wextra -Werror -ffreestanding -nostdlib -fuse-ld=lld \
    -I"$1/include/quillkit" tests/package/without_runtime.c "$1/lib/quillkit_c.lib" -o "$2" \
    -Wl,-entry:Start,-subsystem:console,-safeseh:no &&
    echo "clang for MSVC links a program with quillkit_c.lib"
}

# check_texts PROGRAM: the program contains the string resources of the class library, which its
# archive cannot hold.
check_texts() {
  if ! strings -el "$1" | grep 'IMSPAPI.DLL not loaded' >/dev/null; then
    echo "$1 lacks the string resources of the class library"
    return 1
  fi
}

# check_zip_files PREFIX: all expected files exist, and the libraries carry the version.
check_zip_files() {
  local file simulator=lib/quillkit/simulator
  for file in bin/{Quillkit,quillkit_c}.dll bin/quillctl.exe lib/{Quillkit,quillkit_c}.{dll.a,def,lib} \
    include/quillkit/{toolkit/quillkit,capi/quillkit_c,import/import_options}.h \
    share/doc/quillkit/docs/guide/which_library.md share/quillkit/bindings/{csharp/Native.cs,python/pyproject.toml} \
    lib/libquillkit_classes.a $simulator/IMSPAPI.DLL lib/cmake/Quillkit/QuillkitConfig.cmake \
    lib/pkgconfig/quillkit.pc share/quillkit/{api.json,api.schema.json,quillctl.schema.json,quillctl/contacts.csv,examples/soft_keys.cpp} \
    share/doc/quillkit/{README,CHANGELOG,docs/simulator}.md; do
    [ -f "$1/$file" ] || { echo "$1 lacks $file"; return 1; }
  done
  for file in Quillkit quillkit_c; do
    strings -el "$1/bin/$file.dll" | grep -xA1 FileVersion | grep -xF "$quillkit_version" >/dev/null ||
      { echo "$file.dll lacks version $quillkit_version"; return 1; }
  done
}
