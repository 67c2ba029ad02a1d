# Runs the examples on the simulated appliance and compares what they print; sourced by ./test.
#
# examples/NAME.txt holds the expected output of NAME. The soft key examples print the same in every
# language.
# shellcheck shell=bash

examples=(soft_keys soft_keys_c import_report browse_book changing_book private_backup)
examples_posix=(keep_alive_poll keep_alive_epoll)
examples_windows=(keep_alive_windows)

# expected_examples NAME...: prints the expected output of examples, each with name and exit status.
expected_examples() {
  local name
  for name in "$@"; do
    echo "example $name"
    cat "examples/${name%_c}.txt"
    echo "status 0"
  done
}

# check_examples FOLDER: runs the examples built in the folder.
check_examples() {
  local folder name status
  folder=$(realpath "$1")
  for name in "${examples[@]}" "${examples_posix[@]}"; do
    echo "example $name"
    status=0
    (cd examples && "$folder/$name" "$(example_argument "$name")" 2>&1 </dev/null) || status=$?
    echo "status $status"
  done | compare_examples "${examples[@]}" "${examples_posix[@]}"
}

# check_examples_exe FOLDER: runs those built for Windows, in one run of Wine.
check_examples_exe() {
  local name
  cp examples/import_report.csv "$1"
  for name in "${examples[@]}" "${examples_windows[@]}"; do
    printf '@echo example %s\r\n' "$name"
    printf '@%s.exe %s 2>&1\r\n' "$name" "$(example_argument "$name")"
    printf '@echo status %%errorlevel%%\r\n'
  done >"$1/examples.bat"
  printf '@exit 0\r\n' >>"$1/examples.bat"
  in_wine "$1" cmd /c examples.bat </dev/null | tr -d '\r' |
    compare_examples "${examples[@]}" "${examples_windows[@]}"
}

# example_argument NAME: prints the argument of an example, or nothing.
example_argument() { if [ "$1" = import_report ]; then echo import_report.csv; fi; }

# compare_examples NAME...: compares standard input with the expected output of these examples.
compare_examples() {
  if ! diff <(expected_examples "$@") -; then
    echo "the output of the examples differs (< expected, > printed)"
    return 1
  fi
  echo "$# examples print the expected output: $*"
}

# check_pytest_example FOLDER: runs the tests of test_panel.py with quillbox in the folder.
check_pytest_example() {
  local folder
  folder=$(realpath "$1")
  PATH=$folder:$PATH QUILLBOX=$folder/quillbox PYTHONPATH=$PWD/quillbox/testing \
    /usr/bin/python3 -B -m pytest -q -p no:cacheprovider examples/test_panel.py
}

# check_python_example FOLDER: runs the Python example with the library in the folder.
check_python_example() {
  if ! python3 examples/soft_keys.py "$1/libquillkit_c.so" | diff examples/soft_keys.txt -; then
    echo "the output of soft_keys.py differs (< expected, > printed)"
    return 1
  fi
  echo "soft_keys.py prints the expected output"
}
