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
expect_reports "ctrl click" r.txt s.txt
expect_selection "ctrl click" $'q.txt\ns.txt'
picture "ctrl click"

click box sub
expect_reports "box" sub
expect_selection "box" $'q.txt\ns.txt'
ask ticked
expect "box: ticked rows" $'sub\np.txt\nq.txt\nr.txt'
picture "box"

click column 1
expect_calls "column title" "OnColumnClick 1"
ask rows
expect "sorted by size" $'.\nsub\nsub/inner.txt\nq.txt\ns.txt\np.txt\nr.txt'
ask ticked
expect "sorted by size: ticked rows" $'sub\nq.txt\np.txt\nr.txt'
picture "sorted by size"

# Two presses at the same place would be a double click.
over column 1
xdotool mousemove_relative 20 0 click 1
settle
expect_calls "column title again" "OnColumnClick 1"
ask rows
expect "sorted by size, largest first" $'.\nsub\nsub/inner.txt\nr.txt\np.txt\ns.txt\nq.txt'
click column 0
ask rows
expect "sorted by name" $'.\nsub\nsub/inner.txt\np.txt\nq.txt\nr.txt\ns.txt'

click label q.txt
ctrl_click label s.txt
mark
press - 3 label q.txt
await OnShellContextMenu
await_menu
picture "menu of the selection"
xdotool key Escape
await_no_menu
settle
expect_selection "right click on a selected row" $'q.txt\ns.txt'

ask empty-clipboard
press - 3 label p.txt
pick "&Copy"
settle
ask log "$session_mark"
grep -qxF 'OnShellContextMenu p.txt' <<<"$answer" || fail "the shell's menu was not for p.txt: $answer"
expect_selection "right click on another row" p.txt
ask clipboard
expect "Copy: the clipboard" "$root\\p.txt"

press - 3 empty
settle
ask log "$session_mark"
grep -q '^OnContextMenu none on nothing' <<<"$answer" || fail "no context request beside the rows"

click label q.txt
shift_click label s.txt
mark
begin_drag - r.txt
drag_to_drop_pane
picture "over the drop pane"
drop
ask log "$session_mark"
grep -qxF 'OnBeginDrag q.txt, r.txt, s.txt' <<<"$answer" || fail "other rows were dragged: $answer"
ask dropped
expect "names dropped" "$root\\q.txt"$'\n'"$root\\r.txt"$'\n'"$root\\s.txt"
picture "dropped"

stop_demo
echo "The list selected, sorted, opened the shell's menu and dragged; pictures: $session_folder"
