# Runs quillctl on the simulated appliance as a user does; sourced by ./test.
#
# What it has to show stands in tests/examples/quillctl.txt: behind "$ quillctl " the arguments of a
# run, below them what it shows on both outputs, and its exit status. Every run finds the appliance
# as it is delivered. The password that fails is "sesame", which nothing may show.
# shellcheck shell=bash

transcript=tests/examples/quillctl.txt

# check_quillctl FOLDER: whether the quillctl in the folder does what the transcript tells, and does
# so again.
check_quillctl() {
  local pass
  write_session "$1" quillctl_session.sh "echo '\$ quillctl &'\\n./quillctl & 2>\\&1\\necho status \$?"
  for pass in 1 2; do
    (cd "$1" && sh quillctl_session.sh) | compare_transcript "$1" "$pass" || return 1
  done
}

# check_quillctl_exe FOLDER: the same of quillctl.exe, once and all in one run of Wine.
check_quillctl_exe() {
  write_session "$1" quillctl_session.bat \
    "@echo \$ quillctl &\\n@quillctl.exe & 2>\\&1\\n@echo status %errorlevel%"
  echo '@exit 0' >>"$1/quillctl_session.bat"  # not the status of the last run
  in_wine "$1" cmd /c quillctl_session.bat | compare_transcript "$1" 1
}

# write_session FOLDER FILE LINES: a script that makes the runs of the transcript. LINES makes one;
# "&" in it stands for the arguments.
write_session() {
  echo KELP >"$1/password.txt"
  sed -n 's/^\$ quillctl //p' "$transcript" | sed "s|.*|$3|" >"$1/$2"
}

# compare_transcript FOLDER PASS: whether standard input is the transcript.
compare_transcript() {
  local shown=$1/quillctl_shown.txt
  tr -d '\r' >"$shown"
  if ! diff "$transcript" "$shown"; then
    echo "quillctl, pass $2: this differs (< to be shown, > shown)"
    return 1
  fi
  if grep -v '^\$' "$shown" | grep sesame; then
    echo "quillctl shows a password"
    return 1
  fi
  echo "quillctl, pass $2: $(grep -c '^status' "$shown") runs show what they should"
}

# check_without_server_library FOLDER: quillctl with no server library beside it ends with a code.
check_without_server_library() {
  local out status=0
  out=$(mktemp -d)
  cp "$1/quillctl" "$1/libQuillkit.so" "$out"
  "$out/quillctl" info 2>"$out/errors" || status=$?
  if [ "$status" = 1 ] && grep -q 'code 20, IMSP Unitialized' "$out/errors"; then
    status=0
  else
    echo "quillctl without a server library: status $status, to be 1, with code 20:"
    cat "$out/errors"
    status=1
  fi
  rm -rf "$out"
  return "$status"
}
