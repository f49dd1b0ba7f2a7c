#!/bin/bash
# with_display.sh command [argument...]
#
# Runs a command with an X display and a Wine prefix of its own, and ends both afterwards. The
# prefixes are in build/, one for each run at the same time; creating one takes some seconds, once.
# A nested call only runs its command. With QVL_USE_DISPLAY set, the display is the user's own, which
# has a window manager, and the prefix is one for that. With QVL_THEME set, windows have a theme.
set -euo pipefail

if [ -n "${QVL_DISPLAY_READY:-}" ]; then
  exec "$@"
fi

tools=$(cd -- "$(dirname -- "${BASH_SOURCE[0]}")" && pwd)
root=$(dirname -- "$tools")

if [ -z "${QVL_USE_DISPLAY:-}" ] && [ -z "${QVL_VIRTUAL_DISPLAY:-}" ]; then
  export QVL_VIRTUAL_DISPLAY=1
  unset WAYLAND_DISPLAY
  exec xvfb-run --auto-servernum --server-args '-screen 0 1280x1024x24 -nolisten tcp -noreset' \
    "${BASH_SOURCE[0]}" "$@"
fi

# shellcheck source=tools/find_wine.sh
. "$tools/find_wine.sh"

command_pid=
prefix_locked=

# shellcheck disable=SC2317 # called by the trap
clean_up() {
  trap - EXIT INT TERM HUP
  if [ -n "$command_pid" ]; then
    kill "$command_pid" 2>/dev/null || true
  fi
  if [ -n "$prefix_locked" ]; then
    "$WINESERVER" -k 2>/dev/null || true
    timeout 10 "$WINESERVER" -w 2>/dev/null || true
  fi
}
trap clean_up EXIT
trap 'exit 130' INT
trap 'exit 143' TERM
trap 'exit 129' HUP

# Takes the first prefix that no other run holds. The lock ends with this script and is passed to no
# child, so a server that still runs in a prefix that could be locked is a leftover.
choose_prefix() {
  mkdir -p "$root/build"
  local slot kind=wine
  if [ -n "${QVL_USE_DISPLAY:-}" ]; then
    kind=wine-desktop
  fi
  kind+=${QVL_THEME:+-theme}
  for slot in 1 2 3 4 5 6 7 8; do
    exec 9>"$root/build/$kind-$slot.lock"
    if flock -n 9; then
      export WINEPREFIX="$root/build/$kind-$slot"
      prefix_locked=yes
      "$WINESERVER" -k 9>&- 2>/dev/null || true
      return
    fi
  done
  echo "with_display.sh: too many runs at the same time in $root" >&2
  exit 1
}

set_value() {
  "$WINE64" reg add "$1" /v "$2" /t REG_SZ /d "$3" /f 9>&- >/dev/null 2>&1
}

# A prefix is complete when its marker names the Wine that made it and its settings. Tests use no
# theme, because windows without one look and measure the same everywhere. The virtual display has no
# window manager; unless Wine knows that, it waits two seconds at every window.
make_prefix() {
  local marker="$WINEPREFIX/qvl-ready" version
  version="$("$WINE64" --version 9>&-), settings 2"
  "$WINESERVER" -p 9>&- 2>/dev/null || true
  if [ "$(cat "$marker" 2>/dev/null)" = "$version" ]; then
    return
  fi
  "$WINESERVER" -k 9>&- 2>/dev/null || true
  timeout 10 "$WINESERVER" -w 9>&- 2>/dev/null || true
  rm -rf "$WINEPREFIX"
  mkdir -p "$WINEPREFIX"
  "$WINESERVER" -p 9>&-
  "$WINE64" wineboot -i 9>&- >/dev/null 2>&1
  local theme=0
  [ -z "${QVL_THEME:-}" ] || theme=1
  set_value 'HKCU\Software\Microsoft\Windows\CurrentVersion\ThemeManager' ThemeActive "$theme"
  if [ -z "${QVL_USE_DISPLAY:-}" ]; then
    set_value 'HKCU\Software\Wine\X11 Driver' Managed N
  fi
  # The processes that set the prefix up make every later start of a program wait.
  "$WINESERVER" -k 9>&- 2>/dev/null || true
  timeout 10 "$WINESERVER" -w 9>&- 2>/dev/null || true
  "$WINESERVER" -p 9>&-
  echo "$version" >"$marker"
}

export WINEARCH=win64
export WINEDEBUG=${WINEDEBUG:--all}
# No installers of optional parts, no menu entries in the user's desktop.
export WINEDLLOVERRIDES="mscoree=;mshtml=;winemenubuilder.exe="

choose_prefix
make_prefix
# The first program with a window makes Wine start its desktop, which keeps that program's output open,
# so that a reader would wait forever. This program has no output.
"$WINE64" rundll32 shell32.dll,None 9>&- </dev/null >/dev/null 2>&1 || true

export QVL_DISPLAY_READY=1
"$@" <&0 9>&- &
command_pid=$!
status=0
wait "$command_pid" || status=$?
command_pid=
exit "$status"
