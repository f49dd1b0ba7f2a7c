#!/bin/bash
# The list by mouse: selection, a box, a column title, the shell's menu and a drag. The native list
# decides how often it reports a row, so what counts is that each report has its own bracket and
# which rows are reported.
set -euo pipefail

session_name=list
# shellcheck source=tools/demo_session.sh
. "$(dirname -- "$0")/../../tools/demo_session.sh"

folder="$session_folder/files"
mkdir -p "$folder/sub"
root=$(windows_path "$folder")
printf '%30s' >"$folder/p.txt"
printf '%10s' >"$folder/q.txt"
printf '%40s' >"$folder/r.txt"
printf '%20s' >"$folder/s.txt"
printf '%5s' >"$folder/sub/inner.txt"

# expect_reports name row...: the new calls are brackets of one report, of just these rows.
expect_reports() {
  local name=$1
  shift
  new_calls
  local rows
  rows=$(awk '
    NR % 3 == 1 && $0 != "OnBeginSelectionChange" { exit 1 }
    NR % 3 == 2 && $1 != "OnItemSelectionChanged" { exit 1 }
    NR % 3 == 2 { print $2 }
    NR % 3 == 0 && $0 != "OnEndSelectionChange" { exit 1 }
    END { if (NR % 3 != 0) exit 1 }' <<<"$answer") || fail "$name: not brackets of one report:
$answer"
  answer=$(sort -u <<<"$rows")
  expect "$name: rows reported" "$(printf '%s\n' "$@" | sort -u)"
  mark
}

start_demo "$folder" --list
settle
ask rows
expect "the rows" $'.\nsub\nsub/inner.txt\np.txt\nq.txt\nr.txt\ns.txt'
mark

click label q.txt
expect_reports "click" q.txt
expect_selection "click" q.txt
picture "click"

shift_click label s.txt
expect_reports "shift click" q.txt r.txt s.txt
expect_selection "shift click" $'q.txt\nr.txt\ns.txt'
picture "shift click"

ctrl_click label r.txt
new_calls; echo "$answer"
expect_selection "ctrl click" $'q.txt\ns.txt'
picture "ctrl click"
mark

click box sub
new_calls; echo "$answer"
ask ticked
echo "$answer"
ask selection
echo "$answer"
picture "box"
