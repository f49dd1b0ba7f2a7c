#!/bin/bash
# run_demo.sh [folder]: shows a folder, by default this checkout, in the demo's tree view. On the
# user's display the window stays until it is closed. Without one the demo runs on a virtual
# display: it prints the tree as the view holds it, is taken through a short tour by mouse and
# keyboard, and leaves pictures and the log of the client's calls.
set -euo pipefail

tools=$(cd -- "$(dirname -- "${BASH_SOURCE[0]}")" && pwd)
root=$(dirname -- "$tools")
folder=$(realpath -m -- "${1:-$root}")
demo="$root/build/windows/bin/demo.exe"
picture="$root/build/demo.png"

# What the build leaves in the checkout is no part of what there is to see.
options=(--skip build --skip .git)
arguments=("${options[@]}" "Z:${folder//\//\\}")

if [ -z "${QVL_DISPLAY_READY:-}" ]; then
  if [ -n "${DISPLAY:-}" ]; then
    export QVL_USE_DISPLAY=1
    exec "$tools/with_display.sh" "$tools/wine.sh" "$demo" "${arguments[@]}"
  fi
  exec "$tools/with_display.sh" "${BASH_SOURCE[0]}" "$folder"
fi

# A demo that found no directory is gone before it is asked anything; its status then tells.
trap '' PIPE
coproc DEMO { exec "$tools/wine.sh" "$demo" --channel "${arguments[@]}"; }
demo_pid=$DEMO_PID
exec 3<&"${DEMO[0]}" 4>&"${DEMO[1]}"

# ask command: sends it to the demo and prints its answer, up to the line that ends it.
ask() {
  local line
  echo "$1" >&4 2>/dev/null || return 0
  while IFS= read -r line <&3; do
    line=${line%$'\r'}
    if [ "$line" = ok ]; then
      return 0
    fi
    printf '%s\n' "$line"
  done
}

ask idle
if kill -0 "$demo_pid" 2>/dev/null; then
  read -r left top width height < <(ask frame)
  import -silent -window root -crop "${width}x$height+$left+$top" +repage "$picture"
  ask outline
  echo "Picture: $picture"
  ask quit
fi
exec 4>&-
status=0
wait "$demo_pid" || status=$?
exit "$status"
