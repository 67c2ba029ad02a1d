# Tests of quillctl on the simulator; sourced by ./test.
#
# The files of tests/quillctl/transcript/ are the expected transcript. A line "$ quillctl ARGUMENTS"
# starts a run; the lines after it are its output, including standard error, and its exit status.
# "$ set NAME=VALUE" sets an environment variable for the runs that follow. "$ show FILE" prints a
# file. Each run starts with the simulator's initial state, unless QUILLBOX_STATE is set. "sesame" is
# a wrong password. It must not appear in any output.
# shellcheck shell=bash

transcript=tests/quillctl/transcript
sessions=("$transcript"/*.txt)

# check_quillctl FOLDER: compares two runs of the quillctl in the folder with the transcript, the
# second one with a server library that has no entry points but those of a real one. Also tests
# password prompts, completion and the JSON output. scripts/check_failures tests failing calls.
check_quillctl() {
  local folder
  ln -f "$1/quillctl" "$1/bare/"
  cp -r "$1/data" "$1/bare/"
  for folder in "$1" "$1/bare"; do
    write_session "$folder" quillctl_session.sh \
      -e "h; s|^\$ .*|echo '&'|p; g" \
      -e "s|^\$ quillctl \(.*\)|./quillctl \1 2>\&1\\necho status \$?|p" \
      -e "s|^\$ set |export |p" \
      -e "s|^\$ show |cat |p"
    clean_session "$folder"
    (cd "$folder" && env -u QUILLCTL_PASSWORD sh quillctl_session.sh </dev/null) |
      compare_transcript "$folder" "in ${folder#"${1%/*}"/}" || return 1
  done
  if [ "$(stat -c %a "$1/session_state")" != 600 ]; then
    echo "other users can read the simulator's state file, which contains passwords"
    return 1
  fi
  scripts/check_interactive "$1/quillctl" && check_completion "$1" && check_statuses "$1" &&
    check_typed_names "$1" &&
    scripts/check_json_schema &&
    scripts/check_corpus "$1/quillctl"
}

# check_completion FOLDER: tests the completion of commands, options, choices and names in bash.
check_completion() {
  local cache status=0
  cache=$(mktemp -d)
  XDG_RUNTIME_DIR=$cache QUILLCTL_PASSWORD=quill bash -euc '
    eval "$("$1/quillctl" completion bash)"
    complete -p quillctl >/dev/null
    while IFS=: read -r line expected; do
      IFS=" " read -ra words <<<"$line"
      COMP_WORDS=(quillctl "${words[@]}") COMP_CWORD=${#words[@]}
      _quillctl "$1/quillctl"
      [ "${COMPREPLY[*]-}" = "$expected" ] && continue
      echo "completion of \"quillctl $line\": expected $expected, but got ${COMPREPLY[*]-}"
      exit 1
    done
    echo "bash completes the commands of quillctl"
  ' bash "$1" <<'END'
inf:info
--pass:--password --password-file --password-stdin
config apply --y:--yes
--user keys completion f:fish
entry import --format m:mail
entry export email --format v:vcard
item rename --host i:
ke:key
key rename D:Desks
item show Desks B:Bertil
entry edit email Co:Courier\ desk
entry show email Ber:Bertil\ Sjögren
entry show email Ø:Østergaard\ A/S
item move Desks Agnes --to D:Desks
--host=127.0.0.1 key rename D:Desks
--user TOOLKIT key rename D:
key add D:
entry l:list
entry list p:printers private
END
  status=$?
  rm -rf "$cache"
  return "$status"
}

# check_statuses FOLDER: runs the command lines of tests/quillctl/statuses.txt, each with the simulator's
# initial state and the faults beside it, and compares their exit statuses.
check_statuses() {
  local expected faults line status failed=0 count=0
  while IFS='|' read -r expected faults line; do
    status=0
    (cd "$1" && eval "set -- $line" &&
      QUILLBOX_FAULTS=${faults// /} QUILLBOX_STATE='' QUILLCTL_PASSWORD=quill ./quillctl "$@") \
      </dev/null >"$1/session_output" 2>&1 || status=$?
    count=$((count + 1))
    [ "$status" = "${expected% }" ] && continue
    echo "quillctl$line: expected status $expected, but got $status:"
    cat "$1/session_output"
    failed=1
  done <tests/quillctl/statuses.txt
  [ "$failed" = 0 ] && echo "quillctl ends with the expected status for $count command lines"
}

# check_typed_names FOLDER: tests that a name typed in UTF-8 finds the one that the simulator has in
# Windows-1252. Windows reads command lines in another character set: these are not in the transcript.
check_typed_names() {
  local folder state line expected shown status=0
  state=$(mktemp -d)
  while IFS='|' read -r line expected; do
    shown=$(folder=$1 && eval "set -- $line" &&
      QUILLBOX_STATE=$state/session QUILLCTL_PASSWORD=quill "$folder/quillctl" "$@" 2>&1)
    grep -qF "$expected" <<<"$shown" && continue
    echo "quillctl $line: expected $expected, but got $shown"
    status=1
  done <<'END'
entry show email "Bertil Sjögren"|Address  bertil.sjogren@office.example
entry find email Å|Åkesson, Olof
entry find email "Østergaard A/S" --whole|Østergaard A/S
entry list email --letter Ø|Østergaard A/S
entry list email --from "Vikárová, Jana" --limit 1|Würth Schreinerei
entry list email --letter Åk|not a single character
entry edit email "Dietmar Klöpfer" --address dk@office.example|Changed the entry
entry add email "Å" --address a@office.example|Added the entry
entry list email --letter Å|a@office.example
entry find email Å|a@office.example
list create email $'B\374ro' "Bertil Sjögren"|Created the e-mail list "Büro" with 1 member
list create email Büro|already exists
list add email Büro "Bertil Sjögren"|already has "Bertil Sjögren"
list remove email Büro "Bertil Sjögren" --yes|Removed 1 member
list rename email Büro Bureau|Renamed the e-mail list "Büro"
key add $'B\374ro'|Added the key "Büro"
key add Büro|code 14, Name Conflict
item add Büro $'Andr\351'|Added the item "André" under the key "Büro"
item show Büro André|André
item rename Büro André Andreas|Renamed the item "André" under the key "Büro" to "Andreas"
item move Büro Andreas --to Desks|Moved the item "Andreas"
key delete Büro --yes|Deleted the key "Büro"
entry add email "Bertil Sjögren" --address b@office.example|code 14, Name Conflict
user off "Carmen Ibáñez"|The account "Carmen Ibáñez" is off
--user "Bertil Sjögren" --password harbour info|User           Bertil Sjögren
--user "Bertil Sjögren" --password harbour log count "Bertil Sjögren"|1
entry delete email "Würth Schreinerei" --yes|Deleted the entry "Würth Schreinerei"
entry show email "Würth Schreinerei"|has no entry "Würth Schreinerei"
END
  rm -rf "$state"
  [ "$status" = 0 ] && echo "quillctl finds names in Windows-1252 that are typed in UTF-8"
}

# check_commands_exe FOLDER: compares one run of quillctl.exe with the transcript, and one of
# quillbox.exe with its own; scripts/check_quillbox tests quillbox on Linux. All commands run in one Wine
# process, which is faster.
check_commands_exe() {
  local sessions=("${sessions[@]}" tests/quillbox/session.txt)
  write_session "$1" commands.bat \
    -e "h; s|[<>]|^&|g; s|^\$ .*|@echo &|p; g" \
    -e "s|^\$ \(quill[a-z]*\) \(.*\)|@\1.exe \2 2>\&1\\n@echo status %errorlevel%|p" \
    -e "s|^\$ set |@set |p" \
    -e "s|^\$ show |@type |p"
  clean_session "$1"
  write_scenarios "$1"
  echo '@exit 0' >>"$1/commands.bat"  # instead of the status of the last run
  in_wine "$1" cmd /c commands.bat </dev/null | compare_transcript "$1" 1
}

# write_scenarios FOLDER: creates the files of the runs of quillbox.exe.
write_scenarios() {
  local i
  printf '%s\n' 'quillbox scenario 1' 'bgin empty' >"$1/session_misspelt"
  printf '%s\n' 'quillbox scenario 1' 'begin empty' 'fault IMSPCreateEntry nth 3 status 8' \
    >"$1/session_third"
  printf '%s\n' 'quillbox scenario 1' 'begin session_dump' 'fault IMSPCreateEntry nth 3 status 8' \
    >"$1/session_unfired"
  printf '%s\n' 'quillbox scenario 1' 'begin session_dump' >"$1/session_begun"
  printf '%s\n' 'quillbox scenario 1' 'begin session_from_appliance' >"$1/session_field"
  printf 'Name %s,box\n' {1..4} >"$1/session_rows"
  for i in 1 2 3 4; do printf "Process $i name %s,box\n" {1..5} >"$1/session_rows$i"; done
  # Runs four processes at the same time, and waits for the file that each of them leaves.
  printf '%s\r\n' '@echo off' 'for %%i in (1 2 3 4) do start /b cmd /c session_one.bat %%i' \
    ':again' 'for %%i in (1 2 3 4) do if not exist session_done%%i goto again' \
    >"$1/session_four.bat"
  printf '%s\r\n' \
    '@quillctl entry import --headings no --map 1,2 session_rows%1 >nul 2>&1' \
    '@echo >session_done%1' >"$1/session_one.bat"
}

# write_session FOLDER FILE COMMANDS: writes a script that repeats the runs of the transcript. COMMANDS
# are arguments of sed; they convert each "$" line to lines of the script.
write_session() {
  local script=$1/$2
  shift 2
  cat "${sessions[@]}" | sed -n "$@" >"$script"
}

# clean_session FOLDER: creates the input files of the runs. Deletes the session_... files of earlier
# runs.
clean_session() {
  rm -f "$1"/session_*
  echo KELP >"$1/password.txt"
  printf 'KELP\0\n' >"$1/session_zero"
  printf '%s\n' 'quillbox state 1' 'book 512 "Desks" ""' 'entry "Agnes"' end \
    >"$1/session_damaged"
  cp tests/quillctl/ewa.book "$1/session_ewa.book"
  cp simulator/answers.json "$1/session_answers"
  sed 's/code 7, /code 0, /' simulator/answers.json >"$1/session_other_answers"
  printf '%s\n' 'quillbox scenario 1' 'clock real' 'keep-alive 300' >"$1/session_scenario"
  head -c 300 tests/quillctl/ewa.book >"$1/session_cut.book"
  echo yes >"$1/session_yes"
  echo no >"$1/session_no"
  echo 'SE emailab "Bob" "box"' >"$1/session_script"
  printf '%s\n' 'Full Name,Fax,E-mail,Fax' '"Lee, Ann",1,box1' ',2,box2' 'Bob,3,box3' 'Cy,"4,box4' \
    'A name with more than 31 characters,5,box5' 'Bob,6,box6' >"$1/session_rows.csv"
  printf '%b' '\0357\0273\0277 "Lee, Ann" , box1\r\n \t\n\nBob\nCy,"box3\nDi,,x\nEd, ""\n' \
    ',box6\n"Fay,box7\nGus,box8,"open\nHal,box9\rIda,box10\n' >"$1/session_spaces.csv"
  printf 'Name,Mail\rAnn,box1\nBob,box2\n' >"$1/session_return.csv"
  printf '%s\n' 'cn: stray' '' 'dn: 1' 'cn: Ann' 'mail: box1' 'cn: more' '' 'dn: 2' 'ou: none' '' \
    'dn: 3' 'cn: Bob' '' 'dn: 4' 'mail: box4' '' 'dn: 5' 'cn: Cy "C" Lee' 'mail: box5' \
    'dn: 6' 'cn: A' ' nn' 'mail: box6' 'dn: 7' 'cn: B' 'mail: bo' ' x7' \
    'dn: 8' 'cn:: Qw==' 'mail: box8' 'dn: 9' 'cn: E' 'xdn: y' 'mail: box9' \
    'dn: 10' 'cn: F' 'mail:' 'dn: 11' 'Cn: G' 'mail: box11' \
    'dn: 12' 'mail: box12' 'cn: Hal' 'Mail: more' '' 'cn: I' 'DN: 13' \
    'dn: 14' 'cn: J' 'DN: 15' 'cn: K' >"$1/session_people.ldif"
  printf '%s\n' 'Class,First' 'List,,,All,x,%SMTP:all%' '' 'Mailbox,A,B,Ann,x,%SMTP:box1%' \
    'Mailbox,A,B,Bob' 'Mailbox,A,B,Cy,%smtp:box3%' 'Mailbox,A,B,Di,SMTP:box4' \
    '"Mailbox",A,B,Ed,%SMTP:box5%' 'Mailbox,A,B,"Fay,%SMTP:box6%' \
    'Mailbox,A,B,"G, ""H""",%SMTP:box7%' 'Mailbox,A,B,I "J" K,%SMTP:box8%' \
    'Mailbox,A,B,,%SMTP:box9%' >"$1/session_mailboxes.csv"
  printf '%s\n' '{"quillbox-keys": 1,' '"keys": [{]}' >"$1/session_broken.json"
  printf '%s\n' '{"quillbox-keys": 1, "keys": [{"name": "Desks", "items": [' \
    '{"name": "Agnes", "format": 2}, {"name": "Agnes", "format": 3}]}]}' >"$1/session_twice.json"
  printf '%s\n' '{"quillbox-keys": 1, "keys": [{"name": "Attic", "items": [{"name": "Boxes"}]}, ' \
    '{"name": "Workshop", "items": [{"name": "Drawings A0"}, {"name": "Drawings A4", ' \
    '"address": "10.0.4.9", "format": 3, "settings": 17}]}]}' >"$1/session_wanted.json"
}

# compare_transcript FOLDER PASS: compares standard input with the transcript.
compare_transcript() {
  local shown=$1/quillctl_shown.txt
  tr -d '\r' >"$shown"
  if ! diff <(cat "${sessions[@]}") "$shown"; then
    echo "quillctl, pass $2: the output differs from ${sessions[*]} (< expected, > actual)"
    return 1
  fi
  if grep -av '^\$' "$shown" | grep -a sesame; then
    echo "quillctl shows a password"
    return 1
  fi
  echo "quillctl, pass $2: $(grep -ac '^status' "$shown") runs match the transcript"
}

# check_demo QUILLCTL: compares `demo` of an installed quillctl with its run in the transcript.
check_demo() {
  if ! "$1" demo 2>&1 | diff <(sed '1d; /^status/,$d' "$transcript/demo.txt") -; then
    echo "$1 demo: the output differs from $transcript/demo.txt (< expected, > actual)"
    return 1
  fi
  echo "the demo of the installed quillctl matches the transcript"
}

# check_manual FOLDER PROGRAM: tests that the manual page of quillctl or quillbox describes exactly the
# commands and long options that the program in the folder has, each option with its command.
check_manual() {
  local page=docs/$2.1 offered
  mandoc -T lint -W warning "$page" || return 1
  offered=$(offers "$1/$2") || return 1
  if ! diff <(echo "$offered") <(awk -v program="$2" '
    /^\.Sh/ { command = $2 == "OPTIONS" ? program : "" }
    /^\.It Ic/ { command = $4 ~ /^[a-z]/ ? $3 " " $4 : $3; print command }
    /^\.It/ && command != "" {
      for (i = 2; i < NF; ++i) if ($i == "Fl" && $(i + 1) ~ /^-/) print command, "-" $(i + 1)
    }' "$page" | sort -u); then
    echo "$page differs from $2 --help (< missing in the page, > missing in the program)"
    return 1
  fi
  echo "$page describes all $(echo "$offered" | wc -l) commands and options of $2"
}

# offers PROGRAM: prints its commands, and each long option after the name of its command, one per
# line.
offers() {
  local command part parts options="s/^  \(-[a-z],\)\{0,1\}\(--[a-z-]*\).*/\2/p"
  local subcommands='/^Subcommands:/,/^$/s/^  \([a-z-]*\) .*/\1/p'
  {
    "$1" --help | sed -n "$options" | sed "s/^/$(basename "$1") /"
    for command in $("$1" --help | sed -n "$subcommands"); do
      parts=$("$1" "$command" --help | sed -n "$subcommands")
      for part in $parts; do offered_by "$1" "$command" "$part"; done
      [ -n "$parts" ] || offered_by "$1" "$command"
    done
  } | sort -u
}

# offered_by QUILLCTL COMMAND...: prints a command, and each of its long options after its name.
offered_by() {
  local quillctl=$1
  shift
  echo "$*"
  "$quillctl" "$@" --help | sed -n "$options" | sed "/^--help$/d; s/^/$* /"
}

# check_without_server_library FOLDER: runs check_no_server_library on a copy of quillctl in a folder
# without a server library.
check_without_server_library() {
  local out status=0
  out=$(mktemp -d)
  cp "$1/quillctl" "$out"
  check_no_server_library "$out/quillctl" || status=1
  rm -rf "$out"
  return "$status"
}

# check_no_server_library QUILLCTL: tests that a quillctl that finds no server library reports that.
check_no_server_library() {
  local errors status=0
  errors=$("$1" info 2>&1 </dev/null) || status=$?
  if [ "$status" != 4 ] || ! grep -q 'code 20, IMSP Unitialized' <<<"$errors" ||
    ! grep -q '^load the server library: failed' <<<"$("$1" check </dev/null 2>/dev/null)"; then
    echo "quillctl without a server library: expected status 4 and code 20, but got $status:"
    echo "$errors"
    return 1
  fi
}
