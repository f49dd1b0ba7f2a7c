#!/bin/bash
# Drags three selected items of the tree onto the drop pane, which has to find the names of their
# files; and two drags that the user gives up.
set -euo pipefail

session_name=drag
# shellcheck source=tools/demo_session.sh
. "$(dirname -- "$0")/../../tools/demo_session.sh"

folder="$session_folder/files"
mkdir -p "$folder/sub"
touch "$folder"/{p,q,r,s}.txt "$folder/sub/inner.txt" "$folder/two words.txt"

start_demo "$folder"
settle
root=$(windows_path "$folder")

# A press without Ctrl would make the pressed item the only one.
select_two_and_drag_a_third() {
  click label q.txt
  ctrl_click label s.txt
  mark
  begin_drag ctrl "two words.txt"
}

three_names="$root\\q.txt"$'\n'"$root\\s.txt"$'\n'"$root\\two words.txt"

no_second_drop() {
  xdotool mouseup 1
  settle
  ask log "$session_mark"
  case $answer in
    *"files dropped"*) fail "$1: files were dropped all the same" ;;
  esac
  ask dropped
  expect "$1: the drop pane still shows what it had" "$three_names"
  expect_selection "$1" $'q.txt\ns.txt\ntwo words.txt'
}

select_two_and_drag_a_third
drag_to_drop_pane
picture "over the drop pane"
drop
expect_calls "a drag" "OnBeginSelectionChange
OnBeginSelectionChange
OnItemSelectionChanged two words.txt
OnEndSelectionChange
OnBeginDrag q.txt, s.txt, two words.txt
OnItemSelectionChanged two words.txt
OnItemSelectionChanged s.txt
OnEndSelectionChange"
expect_selection "a drag" $'q.txt\ns.txt\ntwo words.txt'
ask dropped
expect "a drag: names in the drop pane" "$three_names"
picture "dropped"

select_two_and_drag_a_third
drag_to_drop_pane
xdotool key Escape
await "they leave"
no_second_drop "a drag that Escape ends"
picture "ended by Escape"

select_two_and_drag_a_third
drag_to_drop_pane
xdotool mousedown 3
await "they leave"
xdotool mouseup 3
no_second_drop "a drag that the right button ends"
picture "ended by the right button"

stop_demo
echo "Three files were dropped, two drags given up; pictures: $session_folder"
