# Runs quillctl on the simulated appliance as a user does; sourced by ./test.
# shellcheck shell=bash

# in_folder FOLDER COMMAND...: runs it there.
in_folder() { (cd "$1" && shift && "$@"); }

# check_quillctl COMMAND...: whether the quillctl that the command runs, in its own folder, does its
# work. Prints what is wrong; else one line.
check_quillctl() {
  local out failed=0
  out=$(mktemp -d)
  check_demo "$out" "$@" || failed=1
  check_failures "$out" "$@" || failed=1
  rm -rf "$out"
  [ "$failed" = 0 ] && echo "quillctl: its demonstration and its failures are as they should be"
}

# check_demo FOLDER COMMAND...: the demonstration shows the same every time and everywhere.
check_demo() {
  local out=$1 run
  shift
  for run in first second; do
    if ! "$@" demo >"$out/$run" 2>"$out/errors"; then
      echo "quillctl demo failed in its $run run:"
      cat "$out/errors"
      return 1
    fi
    tr -d '\r' <"$out/$run" | diff tests/examples/demo.txt - && continue
    echo "quillctl demo shows something else in its $run run (< expected, > shown)"
    return 1
  done
}

# Exit status, what standard error tells, and the arguments.
quillctl_failures=(
  '1|code 2, Invalid User or Password|--password sesame info'
  '1|code 25, Invalid host name|--host nowhere.invalid --password sesame info'
  '1|the password has more than 15 characters|--password sesamesesamesesame info'
  '1|no soft key has the name "Attic"|--password quill items Attic'
  '1|code 3, Address Book Not Found|--password quill delete-key Attic'
  '1|code 14, Name Conflict|--password quill add-item Desks Agnes'
  '1|"missing.csv": code -1,|--password quill import gone/missing.csv --format mail'
  '1|"data": code -2,|--password quill import data --format directory'
  '1|code 17, Bad Command|--password quill import data/contacts.csv --format script'
  '2|neither a column|--password quill import data/contacts.csv --format csv --map x,1'
  '2|has no contacts.csv|demo --data gone'
  '2|unknown option "--pasword"|--pasword sesame info'
  '2|unknown command|--password sesame inform'
  '2|an argument too many|--password sesame delete-key Attic room'
  '2|a name has 1 to 31 characters|--password sesame add-key 12345678901234567890123456789012'
)

# check_failures FOLDER COMMAND...: each failure has its status and its message on standard error,
# and no message tells a password.
check_failures() {
  local out=$1 each expected message arguments status failed=0
  shift
  for each in "${quillctl_failures[@]}"; do
    IFS='|' read -r expected message arguments <<<"$each"
    status=0
    # shellcheck disable=SC2086 # the arguments are split at their blanks
    "$@" $arguments >"$out/shown" 2>"$out/errors" || status=$?
    [ "$status" = "$expected" ] && grep -qF -- "$message" "$out/errors" &&
      ! grep -q sesame "$out/shown" "$out/errors" && continue
    echo "quillctl $arguments: status $status, to be $expected, with \"$message\" among its errors:"
    cat "$out/shown" "$out/errors"
    failed=1
  done
  return "$failed"
}

# check_without_server_library FOLDER: quillctl with no server library beside it ends with a code.
check_without_server_library() {
  local out status=0
  out=$(mktemp -d)
  cp "$1/quillctl" "$1/libQuillkit.so" "$out"
  "$out/quillctl" info 2>"$out/errors" || status=$?
  if [ "$status" != 1 ] || ! grep -q 'code 20, IMSP Unitialized' "$out/errors"; then
    echo "quillctl without a server library: status $status, to be 1, with code 20:"
    cat "$out/errors"
    status=1
  else
    status=0
  fi
  rm -rf "$out"
  return "$status"
}
