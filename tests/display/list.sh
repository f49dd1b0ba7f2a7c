#!/bin/bash
# The list with a real mouse and real keys: selection, a box, a column title, the shell's menu, a drag,
# changes on disk. The native list may report a row several times, so the test looks at the reported
# rows and at the bracket of each report.
set -euo pipefail

session_name=list
# shellcheck source=tests/scripts/demo_session.sh
. "$(dirname -- "$0")/../scripts/demo_session.sh"

folder="$session_folder/files"
mkdir -p "$folder/sub"
root=$(windows_path "$folder")
truncate -s 30 "$folder/p.txt"
truncate -s 10 "$folder/q.txt"
truncate -s 40 "$folder/r.txt"
truncate -s 20 "$folder/s.txt"
truncate -s 5 "$folder/sub/inner.txt"

# after case selection row...: the new callbacks are brackets of one report, for exactly these rows.
after() {
  local name=$1 selection=$2
  shift 2
  new_calls
  answer=$(paste -d ' ' - - - <<<"$answer" | sort -u |
    sed 's/^OnBeginSelectionChange OnItemSelectionChanged \(.*\) OnEndSelectionChange$/\1/')
  expect "$name: rows reported" "$(printf '%s\n' "$@")"
  mark
  expect_selection "$name" "$selection"
}

start_demo "$folder" --list
settle
expect_answer "the rows" $'.\nsub\nsub/inner.txt\np.txt\nq.txt\nr.txt\ns.txt' rows
mark

click label q.txt
after "click" q.txt q.txt

shift_click label s.txt
after "shift click" $'q.txt\nr.txt\ns.txt' q.txt r.txt s.txt

ctrl_click label r.txt
after "ctrl click" $'q.txt\ns.txt' r.txt s.txt

click box sub
after "box" $'q.txt\ns.txt' sub
expect_answer "box: checked rows" $'sub\np.txt\nq.txt\nr.txt' checked

click column 1
expect_calls "column title" "OnColumnClick 1"
expect_answer "sorted by size" $'.\nsub\nsub/inner.txt\nq.txt\ns.txt\np.txt\nr.txt' rows
expect_answer "sorted by size: checked rows" $'sub\nq.txt\np.txt\nr.txt' checked
picture "sorted by size"

# Two presses at the same place would be a double click.
over column 1
xdotool mousemove_relative 20 0 click 1
settle
expect_calls "column title again" "OnColumnClick 1"
expect_answer "sorted by size, largest first" \
  $'.\nsub\nsub/inner.txt\nr.txt\np.txt\ns.txt\nq.txt' rows
click column 0
expect_answer "sorted by name" $'.\nsub\nsub/inner.txt\np.txt\nq.txt\nr.txt\ns.txt' rows

click label q.txt
ctrl_click label s.txt
mark
press - 3 label q.txt
leave_menu
expect_logged "OnShellContextMenu q.txt, s.txt"
expect_selection "right click on a selected row" $'q.txt\ns.txt'

ask empty-clipboard
press - 3 label p.txt
pick "&Copy"
settle
expect_logged "OnShellContextMenu p.txt"
expect_selection "right click on another row" p.txt
expect_answer "Copy: the clipboard" "$root\\p.txt" clipboard

press - 3 empty
await "OnContextMenu none on nothing"

click label q.txt
shift_click label s.txt
mark
begin_drag - r.txt
drag_to_drop_pane
drop
expect_logged "OnBeginDrag q.txt, r.txt, s.txt"
expect_answer "names dropped" "$root\\q.txt"$'\n'"$root\\r.txt"$'\n'"$root\\s.txt" dropped

stop_demo
echo "The list selected, sorted, opened the shell's menu and dragged; pictures: $session_folder"
