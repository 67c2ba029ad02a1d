# Checks of the bindings with the real tools of each language; sourced by ./test.
#
# The guide's pages for C, Python and C# contain the same story; check_samples runs each. These checks
# run what is not on a page.
# shellcheck shell=bash

# shellcheck disable=SC2034 # used by ./test
binding_packages=(tcc mono-mcs mono-runtime python3 python3-venv)

# has_tool TOOL: whether a tool is installed. Says so if it is not.
has_tool() {
  command -v "$1" >/dev/null && return 0
  echo "*** $1 IS NOT INSTALLED: ITS PART OF THE CHECKS OF THE BINDINGS DID NOT RUN. ***"
  return 1
}

# print_story PAGE code|output: prints the story of a page of the guide, or its output.
print_story() {
  awk -v part="$2" '
    /^```/ && !inside { inside = 1; is_story = tolower($2) ~ /^story\./
                        shown = part == "code" ? is_story : after_story; next }
    /^```/ { inside = 0; after_story = is_story; if (shown) exit; next }
    inside && shown' "docs/guide/$1.md"
}

# check_same_story: the three pages show the same output.
check_same_story() {
  local page
  for page in python csharp; do
    diff <(print_story c output) <(print_story $page output) || return 1
  done
  [ "$(print_story c output | wc -l)" -gt 10 ] &&
    echo "the stories in C, Python and C# print the same lines"
}

# check_c_compilers FOLDER SCRATCH: the story in C runs with each compiler.
check_c_compilers() {
  local compiler
  print_story c code >"$2/story.c"
  for compiler in gcc clang tcc; do
    has_tool "$compiler" || continue
    "$compiler" -std=c99 -Isrc "$2/story.c" -o "$2/$compiler" -L"$1" -lquillkit_c &&
      diff <(print_story c output) <(cd "$2" && LD_LIBRARY_PATH=$1 "./$compiler") || return 1
    echo "the story in C runs with $compiler"
  done
}

# check_story_exe FOLDER: the same as a 32-bit Windows program, under Wine.
check_story_exe() {
  print_story c code >"$1/story.c"
  i686-w64-mingw32-gcc-posix -std=c99 -Isrc "$1/story.c" -o "$1/story.exe" -L"$1/../src/capi" \
    -lquillkit_c &&
    diff <(print_story c output) <(in_wine "$1" story.exe </dev/null | tr -d '\r') &&
    echo "the story in C runs as a 32-bit Windows program"
}

# check_without_runtime_exe FOLDER: the program that check_zip links for MSVC runs under Wine.
check_without_runtime_exe() {
  local status=0
  in_wine "$1" without_runtime.exe </dev/null || status=$?
  [ "$status" = 42 ] && echo "the program without a runtime calls the library"
}

# compile_csharp PROGRAM SOURCE: compiles a program with the classes.
compile_csharp() {
  mcs -nowarn:0414 -r:System.Core -out:"$1" "$2" bindings/csharp/*.cs
}

# check_layers SCRATCH: what the story does not use of the layers prints the expected lines.
check_layers() {
  python3 tests/bindings/layers.py | diff tests/bindings/layers.txt - || return 1
  has_tool mcs && has_tool mono || return 0
  compile_csharp "$1/layers.exe" tests/bindings/Layers.cs &&
    mono "$1/layers.exe" | diff tests/bindings/layers.txt - &&
    echo "the layers of Python and C# print the expected lines"
}

# check_ended_handles FOLDER SCRATCH: a program made from toolkit/api.json uses each handle after each
# of its ends.
check_ended_handles() {
  local make=tests/bindings/make_handle_test
  $make c >"$2/handles.c"
  gcc -std=c99 -Isrc "$2/handles.c" -o "$2/handles" -L"$1" -lquillkit_c -lIMSPAPI &&
    "$2/handles" || return 1
  $make python >"$2/handles.py"
  python3 "$2/handles.py" || return 1
  has_tool mcs && has_tool mono || return 0
  $make csharp >"$2/Handles.cs"
  compile_csharp "$2/handles.exe" "$2/Handles.cs" && mono "$2/handles.exe"
}

# check_texts_of_codes: the messages of codes in the packages are those of the library.
check_texts_of_codes() {
  python3 -c '
from quillkit import _native, load
texts = {code: load().translate_toolkit_error(code) for code in _native.STATUS_TEXTS if code >= 0}
errors = {code: load().error_text(code) for code in _native.ERROR_TEXTS}
assert texts.items() <= _native.STATUS_TEXTS.items() and errors == _native.ERROR_TEXTS, (texts, errors)
print(len(texts) + len(errors), "messages are those of the library")'
}

# check_refusals SCRATCH: a library of another contract, a second library, and a 32-bit DLL in a 64-bit
# process are refused with a message.
check_refusals() {
  local library=$1/other/libquillkit_c.so text
  mkdir "$1/other"
  gcc -shared -fPIC tests/bindings/other_contract.c -o "$library"
  text=$(QUILLKIT_LIBRARY=$library python3 -c 'import quillkit; quillkit.load()' 2>&1) || true
  grep -F "$library has contract 99, but this package needs contract 1:" <<<"$text" || return 1
  text=$(QUILLKIT_LIBRARY=libm.so.6 python3 -c 'import quillkit; quillkit.load()' 2>&1) || true
  grep -F "libm.so.6 has contract 0, but this package needs contract 1:" <<<"$text" || return 1
  text=$(python3 -c 'import quillkit; quillkit.load(); quillkit.load("other.so")' 2>&1) || true
  grep -F "cannot load other.so: this process uses libquillkit_c.so already" <<<"$text" || return 1
  python3 -c '
import ctypes, os, quillkit
from quillkit._library import Library
os.name, ctypes.sizeof = "nt", lambda kind: 8
try:
    Library("quillkit_c.dll")
except quillkit.LoadError as error:
    print(error)' | grep "32-bit DLL.*this Python is a 64-bit program: use a 32-bit Python" || return 1
  has_tool mcs && has_tool mono || return 0
  compile_csharp "$1/exit.exe" tests/bindings/ExitTest.cs || return 1
  text=$(LD_LIBRARY_PATH=$1/other mono "$1/exit.exe" 0 2>&1) || true
  grep -m 1 -oF "$library has contract 99, but these classes need contract 1:" <<<"$text"
}

# check_exits_of RUNS JOURNAL PROGRAM...: runs a program that ends with 1,000 live objects. No server
# call follows the logout but the one that unloads the server library.
check_exits_of() {
  local runs=$1 journal=$2 run
  shift 2
  for ((run = 0; run < runs; ++run)); do
    rm -f "$journal"
    if ! QUILLBOX_JOURNAL=$journal timeout 60 "$@" "$run" ||
      ! sed '1,/^IMSPLogout/d' "$journal" | diff - <(echo "IMSPTerminate = 0"); then
      echo "$* $run: no proper end"
      return 1
    fi
  done
  echo "${1##*/}: $runs runs end with 1,000 live objects"
}

# check_exits SCRATCH RUNS: the interpreter and the runtime, at the same time.
check_exits() {
  local python pid
  python=$(python3 -c 'import sys; print(sys.executable)')
  check_exits_of "$2" "$1/journal" "$python" tests/bindings/exit_test.py &
  pid=$!
  if has_tool mono && [ -f "$1/exit.exe" ]; then
    check_exits_of "$2" "$1/journal2" mono "$1/exit.exe" || { wait "$pid"; return 1; }
  fi
  wait "$pid"
}

# check_bindings FOLDER RUNS: all of them, with the libraries in the folder.
check_bindings() (
  scratch=$(mktemp -d)
  trap 'rm -rf "$scratch"' EXIT
  folder=$(realpath "$1")
  export LD_LIBRARY_PATH=$folder PYTHONPATH=$PWD/bindings/python PYTHONDONTWRITEBYTECODE=1
  check_same_story && check_c_compilers "$folder" "$scratch" && check_layers "$scratch" &&
    check_ended_handles "$folder" "$scratch" && check_texts_of_codes && check_refusals "$scratch" && check_exits "$scratch" "$2"
)
