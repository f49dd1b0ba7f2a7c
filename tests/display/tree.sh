#!/bin/bash
# The tree with a real mouse and real keys: selection, the shell's menu of real files, drags, changes
# on disk, long paths. After each gesture the client must have got exactly these callbacks.
set -euo pipefail

session_name=tree
# shellcheck source=tests/scripts/demo_session.sh
. "$(dirname -- "$0")/../scripts/demo_session.sh"

folder="$session_folder/files"
mkdir -p "$folder/sub"
touch "$folder"/{p,q,r,"s t"}.txt "$folder/sub/inner.txt"
root=$(windows_path "$folder")

# after case selection callback...: B and E are the ends of a selection change, an item is a report.
after() {
  local name=$1 selection=$2 call calls=''
  shift 2
  for call in "$@"; do
    case $call in
      B) call=OnBeginSelectionChange ;;
      E) call=OnEndSelectionChange ;;
      On*) ;;
      *) call="OnItemSelectionChanged $call" ;;
    esac
    calls+=${calls:+$'\n'}$call
  done
  expect_calls "$name" "$calls"
  expect_selection "$name" "$selection"
}

every=(. sub p.txt q.txt r.txt "s t.txt")

# The trace of the shell's menu object shows the menu messages that it gets.
export WINEDEBUG=-all,fixme+shell

start_demo "$folder"
settle
expect_answer "the first focus: caret" . caret
mark

click label q.txt
after "click" q.txt B . none q.txt E

shift_click label s t.txt
after "shift click" $'q.txt\nr.txt\ns t.txt' B "s t.txt" "${every[@]}" E

shift_click label p.txt
after "shift click across the anchor" $'p.txt\nq.txt' B p.txt "${every[@]}" E

click label r.txt
after "click on another item" r.txt B p.txt q.txt none r.txt E

ctrl_click label p.txt
after "ctrl click" $'p.txt\nr.txt' B p.txt p.txt r.txt E

ctrl_click label r.txt
after "ctrl click on a selected item" p.txt B r.txt r.txt p.txt E
expect_answer "ctrl click on a selected item: caret" r.txt caret

click label q.txt
mark
key shift+Down
after "shift down" $'q.txt\nr.txt' B q.txt r.txt q.txt E

key shift+Down
after "shift down again" $'q.txt\nr.txt\ns t.txt' B "s t.txt" r.txt E

key shift+Down
after "shift down at the end" $'q.txt\nr.txt\ns t.txt' B E

key shift+Up
after "shift up" $'q.txt\nr.txt' B r.txt E

key Up
after "up" q.txt B q.txt r.txt E q.txt

click button sub
after "plus button" sub B q.txt none sub E "OnItemExpanded sub open"
expect_answer "plus button: visible items" \
  $'.\nsub\nsub/inner.txt\np.txt\nq.txt\nr.txt\ns t.txt' rows

click box p.txt
after "box" p.txt B sub none p.txt E
expect_answer "box: checked items" $'q.txt\nr.txt' checked

click empty
after "click on empty space" "" B p.txt E

press - 3 empty
settle
after "right click on empty space" "" "OnContextMenu none on nothing"

ask empty-clipboard
expect_answer "the clipboard at first" "" clipboard
press - 3 label q.txt
pick "&Copy"
settle
after "right click" q.txt B q.txt E "OnContextMenu q.txt on item+label" "OnShellContextMenu q.txt"
expect_answer "one file copied" "$root\\q.txt" clipboard

ctrl_click label s t.txt
mark
press - 3 label q.txt
pick "&Copy"
settle
after "right click on a selected item" $'q.txt\ns t.txt' \
  "OnContextMenu q.txt on item+label" "OnShellContextMenu q.txt, s t.txt"
expect_answer "two files copied" "$root\\q.txt"$'\n'"$root\\s t.txt" clipboard

press - 3 label p.txt
leave_menu
after "right click on an unselected item" p.txt B q.txt "s t.txt" p.txt E \
  "OnContextMenu p.txt on item+label" "OnShellContextMenu p.txt"
expect_answer "a closed menu copies nothing" "$root\\q.txt"$'\n'"$root\\s t.txt" clipboard

# The shell's menu belongs to one folder.
click label q.txt
ctrl_click label sub/inner.txt
mark
press - 3 label q.txt
settle
after "right click on files of two folders" $'sub/inner.txt\nq.txt' \
  "OnContextMenu q.txt on item+label" "OnShellContextMenu sub/inner.txt, q.txt"
ask status
grep -qF "No menu: the selected files are in different folders" <<<"$answer" ||
  fail "the status line is: $answer"

# The menu keys leave the selection as it is.
click label q.txt
ctrl_click label s t.txt
mark
for menu_key in Menu shift+F10; do
  xdotool key "$menu_key"
  leave_menu
  after "$menu_key" $'q.txt\ns t.txt' "OnShellContextMenu q.txt, s t.txt"
done

three_files="$root\\q.txt"$'\n'"$root\\r.txt"$'\n'"$root\\s t.txt"

# A press without Ctrl would make the pressed item the only one.
select_two_and_drag_a_third() {
  click label q.txt
  ctrl_click label r.txt
  mark
  begin_drag ctrl "s t.txt"
  drag_to_drop_pane
}

no_second_drop() {
  xdotool mouseup 1
  settle
  ask log "$session_mark"
  case $answer in
    *"files dropped"*) fail "$1: files were dropped" ;;
  esac
  expect_answer "$1: the drop pane is unchanged" "$three_files" dropped
  expect_selection "$1" $'q.txt\nr.txt\ns t.txt'
}

select_two_and_drag_a_third
picture "over the drop pane"
drop
after "a drag" $'q.txt\nr.txt\ns t.txt' B B "s t.txt" E "OnBeginDrag q.txt, r.txt, s t.txt" \
  "s t.txt" r.txt E
expect_answer "a drag: names in the drop pane" "$three_files" dropped

select_two_and_drag_a_third
xdotool key Escape
await "the drag leaves"
no_second_drop "a drag ended by Escape"

select_two_and_drag_a_third
xdotool mousedown 3
await "the drag leaves"
xdotool mouseup 3
no_second_drop "a drag ended by the right button"

# The caret is deleted, and the control selects its neighbour. Selection, boxes and expansion of the
# others stay.
click label q.txt
ctrl_click label "s t.txt"
rm "$folder/p.txt" "$folder/s t.txt"
touch "$folder/oo.txt" "$folder/sub/deep.txt"
await_answer "changes on disk" \
  $'.\nsub\nsub/deep.txt\nsub/inner.txt\noo.txt\nq.txt\nr.txt' rows
expect_selection "changes on disk" q.txt
expect_answer "changes on disk: checked items" $'q.txt\nr.txt' checked

# A path that the system can list, and below it one that is too long for the system.
make_deep_folder() {
  local name level
  name=$(printf 'd%.0s' {1..200})
  cd "$folder"
  for level in {1..25}; do
    mkdir "$name"
    cd "$name"
    [ "$level" -ne 3 ] || touch end.txt
  done
}
(make_deep_folder)
has_unreadable_folder() { ask status && [[ $answer == *"1 cannot be read"* ]]; }
retry "the status line has no unreadable folder: $answer" has_unreadable_folder
click label r.txt
click tool expand
ask rows
grep -q '^d*/d*/d*/end.txt$' <<<"$answer" || fail "no file with a long path in: $answer"
ask outline
grep -q '^ *\[ \] d* (cannot be read)/$' <<<"$answer" || fail "no unreadable folder in: $answer"
ask label-visible r.txt
picture "all expanded"

outline() {
  "$session_root/tools/wine.sh" "$session_build/bin/demo.exe" --outline "$1" | tee "$session_folder/outline.txt"
}
stop_demo
[ "$(outline "\\\\?\\$root")" = "$(outline "$root")" ] || fail "the outline depends on the prefix"
grep -qF '[x] q.txt' "$session_folder/outline.txt" || fail "the outline has no checked q.txt"
handed=$(grep -c 'HandleMenuMsg .*(0x117 ' "$session_folder/stderr.log" || true)
[ "$handed" -eq 5 ] || fail "WM_INITMENUPOPUP reached the shell's menu $handed times, not 5 times"
echo "The tree selected, opened the shell's menu and dragged; pictures: $session_folder"
