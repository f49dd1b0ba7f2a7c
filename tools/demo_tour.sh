#!/bin/bash
# demo_tour.sh folder [option...]: takes pictures of the demo with that folder, then leads it by
# mouse and keyboard through what it can do, over a scratch copy of a few files. Prints the calls
# of the client and where the pictures are. Runs on the virtual display.
set -euo pipefail

tools=$(cd -- "$(dirname -- "${BASH_SOURCE[0]}")" && pwd)
root=$(dirname -- "$tools")
export QVL_BUILD_DIR=${QVL_BUILD_DIR:-$root/build/windows}
session_name=tour
session_folder="$root/build/demo"
# shellcheck source=tests/scripts/demo_session.sh
. "$root/tests/scripts/demo_session.sh"

show_folder() {
  start_demo "$@"
  settle
  local branch
  for branch in src src/tree; do
    if try_to_ask point button "$branch"; then
      click button "$branch"
    fi
  done
  picture "the folder"
  local left top width height
  ask client
  read -r left top width height <<<"$answer"
  import -silent -window root -crop "${width}x$height+$left+$top" +repage "$root/build/demo.png"
  stop_demo
}

select_items() {
  click label options.h
  shift_click label text.h
  ctrl_click label main.cpp
  key shift+Down
  key shift+Down
  click button desktop
  click label text.cpp
  ctrl_click label text.h
  picture "selection"
  click box view_filler.h
}

use_the_shells_menu() {
  click label options.cpp
  ctrl_click label options.h
  mark
  press - 3 label options.h
  await_menu
  picture "menu of the shell"
  pick "&Copy"
  ask clipboard
  printf 'On the clipboard after Copy:\n%s\n' "$answer"
}

drag_three_files() {
  click label main.cpp
  ctrl_click label options.cpp
  mark
  begin_drag ctrl text.cpp
  drag_to_drop_pane
  picture "a drag"
  drop
  ask dropped
  printf 'Dropped on the drop pane:\n%s\n' "$answer"
  picture "three files dropped"
}

rename_and_remove() {
  click label entry_text.h
  click tool rename
  await_editing
  xdotool key ctrl+a type renamed.h
  picture "a label is edited"
  xdotool key Return
  settle
  [ -e "$scratch/renamed.h" ] || fail "the file was not renamed"
  click label outline_run.h
  key Delete
  ask rows
  ! grep -qxF outline_run.h <<<"$answer" || fail "the item was not removed"
  picture "renamed and removed"
}

use_the_buttons() {
  local name
  for name in expand tick colours; do
    click tool "$name"
    picture "button $name"
  done
  click tool untick
  click tool colours
  click tool collapse
}

show_the_list() {
  key F6
  picture "list"
  click column 1
  click label main.cpp
  shift_click label text.cpp
  picture "list by size"
  key F6
}

show_folder "$@"

scratch="$session_folder/scratch"
mkdir "$scratch"
cp -r "$root/demo/." "$scratch"
touch "$scratch/.qvl-demo-scratch"

start_demo "$scratch"
settle
select_items
use_the_shells_menu
drag_three_files
rename_and_remove
use_the_buttons
show_the_list
stop_demo

echo
echo "Calls of the client during the tour:"
cat "$session_folder/calls.log"
echo
echo "Pictures:"
printf '%s\n' "$root/build/demo.png" "$session_folder"/*.png
