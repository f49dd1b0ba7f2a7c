#!/bin/bash
# The list with a real mouse and real keys: selection, a box, a column title, the shell's menu, a drag,
# changes on disk, the window's size. The native list may report a row several times, so the test looks at the reported
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

mark
for menu_key in Menu shift+F10; do
  xdotool key "$menu_key"
  leave_menu
  expect_calls "$menu_key" "OnShellContextMenu q.txt, r.txt, s.txt"
  expect_selection "$menu_key" $'q.txt\nr.txt\ns.txt'
done

columns_fill() { expect_answer "$1: width beside the columns" 0 columns; }

# New rows, more than fit into the view.
columns_fill "few rows"
touch "$folder"/n{100..250}.txt
lacks_row() { ! has_row "$1"; }
has_row() { ask rows && grep -qxF "$1" <<<"$answer"; }
retry "the new files do not come" has_row n250.txt
columns_fill "many rows"
expect_selection "new files" $'q.txt\nr.txt\ns.txt'

# A row above the scrolled part is deleted: the scroll position stays.
over label n200.txt
ask top
top=$answer
rm "$folder/n105.txt"
retry "the deleted file does not go" lacks_row n105.txt
expect_answer "a file above is deleted: first row in view" "$top" top
expect_answer "a file above is deleted: checked rows" $'sub\np.txt\nq.txt\nr.txt' checked

over splitter
read -r splitter_x splitter_y <<<"$answer"
for way in -100 100; do
  xdotool mousedown 1 mousemove_relative -- "$way" 0 mouseup 1
  settle
  columns_fill "splitter moved by $way"
  splitter_x=$((splitter_x + way))
  expect_answer "splitter moved by $way" "$splitter_x $splitter_y" point splitter
done

# A small window shows all buttons.
ask client
read -r left top width height <<<"$answer"
xdotool mousemove "$((left + width + 1))" "$((top + height + 1))" mousedown 1 \
  mousemove "$((left + 640))" "$((top + 480))" mouseup 1
settle
ask client
read -r left top width height <<<"$answer"
[ "$width" -lt 660 ] || fail "the window was not resized: width $width"
for tool in expand collapse check uncheck select invert remove rename colors switch; do
  ask point tool "$tool"
  [ "${answer% *}" -lt "$((left + width - 20))" ] || fail "the button $tool is cut: $answer"
done
columns_fill "small window"
picture "small window"

# A change of many rows is in the log file too.
key ctrl+a
ask count
lines=$answer
stop_demo
[ "$(wc -l <"$session_folder/calls.log")" -eq "$lines" ] || fail "the log file has not $lines lines"
echo "The list selected, sorted, opened the shell's menu and dragged; pictures: $session_folder"
