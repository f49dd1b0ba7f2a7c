#!/bin/bash
# The gestures of the tree, made with a real mouse and real keys: after each one the client has to
# have heard exactly these calls, and these items have to be selected.
set -euo pipefail

session_name=tree_gestures
# shellcheck source=tools/demo_session.sh
. "$(dirname -- "$0")/../../tools/demo_session.sh"

folder="$session_folder/files"
mkdir -p "$folder/sub"
touch "$folder"/{p,q,r,s}.txt "$folder/sub/inner.txt"

# calls 'begin' reports... 'end' in the words of the log: B, E and the items that are reported.
calls() {
  local word
  for word in "$@"; do
    case $word in
      B) echo OnBeginSelectionChange ;;
      E) echo OnEndSelectionChange ;;
      *) echo "OnItemSelectionChanged $word" ;;
    esac
  done
}

# after name wanted-calls wanted-selection
after() {
  expect_calls "$1" "$2"
  expect_selection "$1" "$3"
  picture "$1"
}

every="B . sub p.txt q.txt r.txt s.txt E"

start_demo "$folder"
settle
ask caret
expect "the first focus: caret" .
mark

click label q.txt
after "click" "$(calls B . none q.txt E)" "q.txt"

shift_click label s.txt
# shellcheck disable=SC2086
after "shift click" "$(calls B s.txt ${every#B })" $'q.txt\nr.txt\ns.txt'

shift_click label p.txt
# shellcheck disable=SC2086
after "shift click across the anchor" "$(calls B p.txt ${every#B })" $'p.txt\nq.txt'

click label r.txt
after "click on another item" "$(calls B p.txt q.txt none r.txt E)" "r.txt"

ctrl_click label p.txt
after "ctrl click" "$(calls B p.txt p.txt r.txt E)" $'p.txt\nr.txt'

ctrl_click label r.txt
after "ctrl click on a selected item" "$(calls B r.txt r.txt p.txt E)" "p.txt"
ask caret
expect "ctrl click on a selected item: caret" r.txt

click label q.txt
mark
key shift+Down
after "shift down" "$(calls B q.txt r.txt q.txt E)" $'q.txt\nr.txt'

key shift+Down
after "shift down again" "$(calls B s.txt r.txt E)" $'q.txt\nr.txt\ns.txt'

key shift+Down
after "shift down at the end" "$(calls B E)" $'q.txt\nr.txt\ns.txt'

key shift+Up
after "shift up" "$(calls B r.txt E)" $'q.txt\nr.txt'

key Up
after "up" "$(calls B q.txt r.txt E q.txt)" "q.txt"

click button sub
after "plus button" "$(calls B q.txt none sub E)"$'\nOnItemExpanded sub open' "sub"
ask rows
expect "plus button: visible items" $'.\nsub\nsub/inner.txt\np.txt\nq.txt\nr.txt\ns.txt'

click box p.txt
after "box" "$(calls B sub none p.txt E)" "p.txt"
ask ticked
expect "box: ticked items" $'q.txt\nr.txt'

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
after "right click on a selected item" \
  $'OnContextMenu q.txt on item+label\nOnShellContextMenu q.txt, s.txt' $'q.txt\ns.txt'

press - 3 label p.txt
await OnShellContextMenu
await_menu
picture "menu of one item"
xdotool key Escape
await_no_menu
settle
after "right click on an unselected item" \
  "$(calls B q.txt s.txt p.txt E)"$'\nOnContextMenu p.txt on item+label\nOnShellContextMenu p.txt' \
  "p.txt"

click empty
after "click on empty space" "$(calls B p.txt E)" ""

press - 3 empty
settle
after "right click on empty space" "OnContextMenu none on nothing" ""

stop_demo
echo "The gestures gave the calls and the selections that they should; pictures: $session_folder"
