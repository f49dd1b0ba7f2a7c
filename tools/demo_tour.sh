#!/bin/bash
# demo_tour.sh folder [option...]: takes a picture of that folder in the demo, then uses the demo with
# mouse and keys over a scratch folder and takes the pictures of docs/demo.md. Prints the callbacks and
# the pictures. Runs on the virtual display.
set -euo pipefail

tools=$(cd -- "$(dirname -- "${BASH_SOURCE[0]}")" && pwd)
root=$(dirname -- "$tools")
export QVL_BUILD_DIR=${QVL_BUILD_DIR:-$root/build/windows}
# shellcheck disable=SC2034 # read by demo_session.sh
session_name=tour
session_folder="$root/build/demo"
# shellcheck source=tests/scripts/demo_session.sh
. "$root/tests/scripts/demo_session.sh"

pictures="$root/docs/pictures"
scratch="${WINEPREFIX:?}/drive_c/qvl"

# The scratch folder is on a drive of its own, so that no picture shows a path of this machine.
windows_path() {
  if [ "$1" = "$scratch" ]; then
    printf 'C:\\qvl'
  else
    printf 'Z:%s' "${1//\//\\}"
  fi
}

# take file: a picture of what is inside the window's frame.
take() {
  ask idle
  local left top width height
  ask client
  read -r left top width height <<<"$answer"
  import -silent -window root -crop "${width}x$height+$left+$top" +repage -strip "$1"
  taken+=("$1")
}
taken=()

show_folder() {
  start_demo "$@"
  settle
  take "$root/build/demo.png"
  stop_demo
}

show_tree() {
  click button src
  click button src/tree
  click label src/tree/tree_view.h
  take "$pictures/demo.png"
}

use_the_menu() {
  click label README.md
  ctrl_click label Makefile
  mark
  press - 3 label Makefile
  await_menu
  take "$pictures/menu.png"
  pick "&Copy"
}

drag_three_files() {
  click label README.md
  ctrl_click label CONTRIBUTING.md
  mark
  begin_drag ctrl Makefile
  drag_to_drop_pane
  take "$pictures/drag.png"
  drop
}

leave_the_focus() {
  click label src/tree/tree_items.cpp
  shift_click label src/tree/tree_redraw.cpp
  ctrl_click label src/tree/tree_view.h
  click drop
  take "$pictures/selection.png"
}

rename_and_remove() {
  click label CHANGELOG.md
  click tool rename
  await_editing
  xdotool key ctrl+a type renamed.md
  xdotool key Return
  settle
  [ -e "$scratch/renamed.md" ] || fail "the file was not renamed"
  click label Makefile
  key Delete
  ask rows
  ! grep -qxF Makefile <<<"$answer" || fail "the item was not removed"
}

show_the_list() {
  key F6
  click column 1
  click label README.md
  take "$pictures/list.png"
}

show_folder "$@"

rm -rf "$scratch"
mkdir "$scratch"
trap 'end_session; rm -rf "$scratch"' EXIT
cp -r "$root"/{docs,examples,src,tools,CHANGELOG.md,CONTRIBUTING.md,Makefile,README.md} "$scratch"
touch "$scratch/.qvl-demo-scratch"

start_demo "$scratch"
settle
show_tree
use_the_menu
drag_three_files
leave_the_focus
rename_and_remove
show_the_list
stop_demo

echo
echo "Callbacks during the tour:"
cat "$session_folder/calls.log"
echo
echo "Pictures:"
printf '%s\n' "${taken[@]}"
