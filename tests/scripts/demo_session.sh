# shellcheck shell=bash
# Sourced: starts the demo on the present display and speaks with it over its channel, so that a
# script can press keys and buttons where things are, and wait for what follows from them. What
# the demo answers last stands in $answer.
#
# QVL_BUILD_DIR names the build folder; pictures and logs go to $session_folder, which is emptied.

session_root=$(cd -- "$(dirname -- "${BASH_SOURCE[0]}")/../.." && pwd)
session_build=${QVL_BUILD_DIR:-$session_root/build/windows}
session_folder=${session_folder:-$session_build/display/${session_name:?}}
session_demo_pid=
session_syncs=0
session_pictures=0
session_mark=0
session_limit=${session_limit:-60}  # seconds until an answer that does not come counts as a failure

rm -rf "$session_folder"
mkdir -p "$session_folder"

fail() {
  echo "FAILED: $session_name: $*" >&2
  if [ -n "$session_demo_pid" ]; then
    screenshot failure || true
    echo "The calls so far:" >&2
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

# Closes the window and takes the demo's exit status.
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
  printf '%s\n' "$*" >&6 || fail "the demo is gone before: $*"
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

# Moves the mouse there and nothing else: over label|icon|box|button item, empty, drop, tool name,
# column number.
over() {
  ask point "$@"
  # shellcheck disable=SC2086
  xdotool mousemove $answer
}

# All input so far has been handled when this returns. A menu or a drag has no ear for it.
settle() {
  session_syncs=$((session_syncs + 1))
  xdotool key F12
  ask sync "$session_syncs"
}

# press 'keys or -' button place...: a click with keys held, and what it brings about.
press() {
  local keys=$1 button=$2
  shift 2
  ask point "$@"
  local held=()
  local let_go=()
  if [ "$keys" != - ]; then
    held=(keydown "$keys")
    let_go=(keyup "$keys")
  fi
  # shellcheck disable=SC2086
  xdotool mousemove $answer "${held[@]}" click "$button" "${let_go[@]}"
}

click() { press - 1 "$@" && settle; }
shift_click() { press shift 1 "$@" && settle; }
ctrl_click() { press ctrl 1 "$@" && settle; }
key() { xdotool key "$@" && settle; }

# picture name: the screen, as a numbered file, once all is painted.
picture() {
  ask idle
  screenshot "$1"
}

screenshot() {
  session_pictures=$((session_pictures + 1))
  import -silent -window root \
    "$session_folder/$(printf '%02d' "$session_pictures")-${1// /-}.png"
}

# begin_drag 'keys or -' item: presses the left button on the item's label and moves on until the
# client has been asked for files.
begin_drag() {
  over label "$2"
  [ "$1" = - ] || xdotool keydown "$1"
  xdotool mousedown 1
  xdotool mousemove_relative 4 2 mousemove_relative 6 4 mousemove_relative 8 4
  await OnBeginDrag
  [ "$1" = - ] || xdotool keyup "$1"
}

# Takes a drag that has begun to the drop pane.
drag_to_drop_pane() {
  over drop
  xdotool mousemove_relative 3 3
  await "files come in"
}

drop() {
  xdotool mouseup 1
  await "files dropped"
  settle
}

# From here on calls are new.
mark() {
  ask count
  session_mark=$answer
}

# The new calls of the client, without those that come whenever the mouse rests.
new_calls() {
  ask log "$session_mark"
  answer=$(grep '^On' <<<"$answer" | grep -v '^OnGetInfoTip' | sed 's/ at -\?[0-9]*,-\?[0-9]*$//' ||
    true)
}

# retry what-fails command...: until the command succeeds.
retry() {
  local tries
  for ((tries = 0; tries < 500; tries++)); do
    "${@:2}" && return
    sleep 0.02
  done
  fail "$1"
}

# Until the focus is in a label's edit field.
await_editing() { retry "no label is being edited" try_to_ask editing; }

# await text: until a new line of the log contains it.
await() { ask await "$session_mark" "$@"; }

# expect what wanted: the last answer has to be that.
expect() {
  [ "$answer" = "$2" ] && return
  fail "$1"$'\nwanted:\n'"$2"$'\ngot:\n'"$answer"
}

expect_calls() {
  new_calls
  expect "$1: calls of the client" "$2"
  mark
}

# expect_told what wanted question...: the demo has to answer that.
expect_told() {
  ask "${@:3}"
  expect "$1" "$2"
}

# The items, and a picture of them.
expect_selection() {
  expect_told "$1: selection" "$2" selection
  picture "$1"
}

# expect_logged call: it is among the new calls.
expect_logged() {
  new_calls
  grep -qxF "$1" <<<"$answer" || fail "no $1 in:"$'\n'"$answer"
}

# The lines of the menu, once there is one.
await_menu() { retry "no menu came up" try_to_ask menu; }

has_no_menu() { ! try_to_ask menu; }
await_no_menu() { retry "the menu does not go" has_no_menu; }

# Closes the menu that comes up, with a picture of it.
leave_menu() {
  await_menu
  picture "menu"
  xdotool key Escape
  await_no_menu
  settle
}

# has_other_menu before: the menu no longer looks like that.
has_other_menu() {
  ask menu
  [ "$answer" != "$1" ]
}

# pick text: goes down the menu to that command and runs it.
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
