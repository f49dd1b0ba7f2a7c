# shellcheck shell=bash
# Sourced: starts the demo on the current display and sends it commands over its channel, so that a
# script can use mouse and keys on its items and wait for the results. $answer is the demo's last
# answer.
#
# QVL_BUILD_DIR is the build folder. Pictures and logs go to $session_folder, which is emptied.

session_root=$(cd -- "$(dirname -- "${BASH_SOURCE[0]}")/../.." && pwd)
session_build=${QVL_BUILD_DIR:-$session_root/build/windows}
session_folder=${session_folder:-$session_build/display/${session_name:?}}
session_demo_pid=
session_syncs=0
session_pictures=0
session_mark=0
session_limit=${session_limit:-60}  # seconds to wait for an answer

rm -rf "$session_folder"
mkdir -p "$session_folder"

fail() {
  echo "FAILED: $session_name: $*" >&2
  if [ -n "$session_demo_pid" ]; then
    screenshot failure || true
    echo "The callbacks so far:" >&2
    tail -n 40 "$session_folder/calls.log" >&2 || true
    cat "$session_folder/stderr.log" >&2 || true
  fi
  exit 1
}

end_session() {
  if [ -n "$session_demo_pid" ]; then
    kill "$session_demo_pid" 2>/dev/null || true
    wait "$session_demo_pid" 2>/dev/null || true
    session_demo_pid=
  fi
}
trap end_session EXIT

# The path as a Windows program sees it.
windows_path() { printf 'Z:%s' "${1//\//\\}"; }

# start_demo folder [option...]
start_demo() {
  local folder=$1
  shift
  coproc DEMO {
    exec "$session_root/tools/wine.sh" "$session_build/bin/demo.exe" --channel \
      --log "$(windows_path "$session_folder/calls.log")" "$@" "$(windows_path "$folder")" \
      2>"$session_folder/stderr.log"
  }
  session_demo_pid=$DEMO_PID
  session_syncs=0
  exec 5<&"${DEMO[0]}" 6>&"${DEMO[1]}"
  ask count
}

# Closes the window and checks the demo's exit status.
stop_demo() {
  ask quit
  exec 6>&-
  local status=0
  wait "$session_demo_pid" || status=$?
  session_demo_pid=
  [ "$status" -eq 0 ] || fail "the demo ended with status $status"
}

# try_to_ask command...: false if the demo answers with an error.
try_to_ask() {
  local line
  answer=
  printf '%s\n' "$*" >&6 || fail "the demo ended before: $*"
  while IFS= read -r -t "$session_limit" line <&5; do
    case $line in
      ok) return 0 ;;
      error:*)
        answer=$line
        return 1
        ;;
    esac
    answer+=${answer:+$'\n'}$line
  done
  fail "no answer to: $*"
}

ask() { try_to_ask "$@" || fail "$*: $answer"; }

# Moves the mouse there: over label|icon|box|button item, empty, drop, splitter, tool name, column
# number.
over() {
  ask point "$@"
  # shellcheck disable=SC2086
  xdotool mousemove $answer
}

# Returns when all input so far has been handled. Has no effect while a menu or a drag is active.
settle() {
  session_syncs=$((session_syncs + 1))
  xdotool key F12
  ask sync "$session_syncs"
}

# press 'keys or -' button place...: a click with keys held.
press() {
  local keys=$1 button=$2
  shift 2
  ask point "$@"
  local held=()
  local release=()
  if [ "$keys" != - ]; then
    held=(keydown "$keys")
    release=(keyup "$keys")
  fi
  # shellcheck disable=SC2086
  xdotool mousemove $answer "${held[@]}" click "$button" "${release[@]}"
}

click() { press - 1 "$@" && settle; }
shift_click() { press shift 1 "$@" && settle; }
ctrl_click() { press ctrl 1 "$@" && settle; }
key() { xdotool key "$@" && settle; }

# picture name: writes the screen to a numbered file, after all painting.
picture() {
  ask idle
  screenshot "$1"
}

screenshot() {
  session_pictures=$((session_pictures + 1))
  import -silent -window root \
    "$session_folder/$(printf '%02d' "$session_pictures")-${1// /-}.png"
}

# begin_drag 'keys or -' item: presses the left button on the item's label and moves the mouse until
# the client gets OnBeginDrag.
begin_drag() {
  over label "$2"
  [ "$1" = - ] || xdotool keydown "$1"
  xdotool mousedown 1
  xdotool mousemove_relative 4 2 mousemove_relative 6 4 mousemove_relative 8 4
  await OnBeginDrag
  [ "$1" = - ] || xdotool keyup "$1"
}

# Moves an active drag to the drop pane.
drag_to_drop_pane() {
  over drop
  xdotool mousemove_relative 3 3
  await "files enter"
}

drop() {
  xdotool mouseup 1
  await "files dropped"
  settle
}

# Callbacks from here on are new.
mark() {
  ask count
  session_mark=$answer
}

# The new callbacks, without those that depend on how long the mouse rests.
new_calls() {
  ask log "$session_mark"
  answer=$(grep '^On' <<<"$answer" | grep -v '^OnGetInfoTip' | sed 's/ at -\?[0-9]*,-\?[0-9]*$//' ||
    true)
}

# retry failure command...: repeats the command until it succeeds.
retry() {
  local tries
  for ((tries = 0; tries < 500; tries++)); do
    "${@:2}" && return
    sleep 0.02
  done
  fail "$1"
}

# Waits until the focus is in a label's edit control.
await_editing() { retry "no label is being edited" try_to_ask editing; }

has_answer() { ask "${@:2}" && [ "$answer" = "$1" ]; }
# await_answer case wanted command...: waits until the demo answers that.
await_answer() { retry "$1: not answered: $2" has_answer "${@:2}"; }

# await text: waits until a new line of the log contains it.
await() { ask await "$session_mark" "$@"; }

# expect case wanted: the last answer must be that.
expect() {
  [ "$answer" = "$2" ] && return
  fail "$1"$'\nwanted:\n'"$2"$'\ngot:\n'"$answer"
}

expect_calls() {
  new_calls
  expect "$1: callbacks" "$2"
  mark
}

# expect_answer case wanted command...: the demo must answer that.
expect_answer() {
  ask "${@:3}"
  expect "$1" "$2"
}

# expect_selection case wanted: these items are selected. Takes a picture.
expect_selection() {
  expect_answer "$1: selection" "$2" selection
  picture "$1"
}

# expect_logged callback: it is among the new ones.
expect_logged() {
  new_calls
  grep -qxF "$1" <<<"$answer" || fail "no $1 in:"$'\n'"$answer"
}

# Waits for a menu. $answer is its lines.
await_menu() { retry "no menu opened" try_to_ask menu; }

has_no_menu() { ! try_to_ask menu; }
await_no_menu() { retry "the menu does not close" has_no_menu; }

# Waits for a menu, takes a picture of it and closes it.
leave_menu() {
  await_menu
  picture "menu"
  xdotool key Escape
  await_no_menu
  settle
}

# has_other_menu before: the menu has changed.
has_other_menu() {
  ask menu
  [ "$answer" != "$1" ]
}

# pick text: moves down the menu to that command and runs it.
pick() {
  local tries
  await_menu
  for ((tries = 0; tries < 30; tries++)); do
    if grep -qxF "> $1" <<<"$answer"; then
      xdotool key Return
      await_no_menu
      return
    fi
    xdotool key Down
    retry "the menu does not follow the keys" has_other_menu "$answer"
  done
  fail "the menu has no command $1"
}
