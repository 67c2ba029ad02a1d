# Building and running the tests; sourced by the scripts of this tree.
# shellcheck shell=bash

# step TEXT: prints a heading with the seconds since the script started.
step() { printf '\n== %s  [%d s]\n' "$1" "$SECONDS"; }

# configure PRESET FOLDER [cmake options]: configures a build folder. Compilers run through ccache if
# it is installed.
configure() {
  local preset=$1 folder=$2 compiler
  shift 2
  if command -v ccache >/dev/null; then
    for compiler in C CXX; do set -- -D CMAKE_${compiler}_COMPILER_LAUNCHER=ccache "$@"; done
  fi
  cmake --preset "$preset" -B "$folder" --log-level=WARNING "$@" >/dev/null
}

# build PRESET FOLDER [cmake options]: configures and builds everything.
build() {
  configure "$@"
  cmake --build "$2"
}

# run_tests NAME COMMAND...: runs a GoogleTest program and prints its failures, its summary and one
# line with the counts. Fails if a test failed or if no test ran.
run_tests() {
  local name=$1 log status=0 passed failed
  shift
  log=$(mktemp)
  "$@" --gtest_brief=1 >"$log" 2>&1 || status=$?
  cat "$log"
  passed=$(tr -d '\r' <"$log" | sed -n 's/^\[  PASSED  \] \([0-9]*\) tests\{0,1\}\.$/\1/p')
  failed=$(tr -d '\r' <"$log" | grep -c '^\[  FAILED  \] .* ms)$' || true)
  rm -f "$log"
  echo "$name: ${passed:-0} passed, $failed failed"
  [ "$status" = 0 ] && [ "${passed:-0}" -gt 0 ]
}
