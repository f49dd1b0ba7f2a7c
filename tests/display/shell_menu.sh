#!/bin/bash
# The shell's own menu of a real file: a right click opens it, Copy is picked with the keyboard,
# and the clipboard holds that file afterwards.
set -euo pipefail

session_name=shell_menu
# shellcheck source=tools/demo_session.sh
. "$(dirname -- "$0")/../../tools/demo_session.sh"

folder="$session_folder/files"
mkdir -p "$folder"
touch "$folder"/{p,q,r}.txt
root=$(windows_path "$folder")

# The shell's menu object says on its own trace that it was handed a menu message.
export WINEDEBUG=-all,fixme+shell

start_demo "$folder"
settle
ask empty-clipboard
ask clipboard
expect "the clipboard at first" ""

mark
press - 3 label q.txt
await_menu
picture "menu"
pick "&Copy"
settle
expect_calls "right click and Copy" "OnBeginSelectionChange
OnItemSelectionChanged .
OnItemSelectionChanged q.txt
OnEndSelectionChange
OnContextMenu q.txt on item+label
OnShellContextMenu q.txt"
ask clipboard
expect "one file copied" "$root\\q.txt"


ctrl_click label p.txt
mark
press - 3 label q.txt
pick "&Copy"
settle
expect_calls "Copy of two files" "OnContextMenu q.txt on item+label
OnShellContextMenu p.txt, q.txt"
ask clipboard
expect "two files copied" "$root\\p.txt"$'\n'"$root\\q.txt"

mark
press - 3 label q.txt
await_menu
xdotool key Escape
await_no_menu
settle
ask clipboard
expect "a menu that is left copies nothing" "$root\\p.txt"$'\n'"$root\\q.txt"

stop_demo
handed=$(grep -c 'HandleMenuMsg .*(0x117 ' "$session_folder/stderr.log" || true)
[ "$handed" -eq 3 ] || fail "WM_INITMENUPOPUP reached the shell's menu $handed times, not once for each of 3 menus"
echo "The shell's menu came up and copied; pictures: $session_folder"
