#!/bin/bash
# run_demo.sh [folder]: shows a folder, by default this checkout, in the demo. On the user's display the
# window stays until it is closed. Without a display the demo runs on a virtual one: it prints the tree
# as the view holds it, and demo_tour.sh uses it with mouse and keys and takes pictures. Status 2: there
# is no such folder.
set -euo pipefail

tools=$(cd -- "$(dirname -- "${BASH_SOURCE[0]}")" && pwd)
root=$(dirname -- "$tools")
folder=$(realpath -m -- "${1:-$root}")
windows_folder="Z:${folder//\//\\}"
demo="$root/build/windows/bin/demo.exe"
export QVL_THEME=1

# The results of the build are not shown. Wine shows a link to a folder as a folder, and its prefixes
# hold one to the root of all files.
options=(--skip build --skip .git --skip dosdevices)

if [ -n "${QVL_DISPLAY_READY:-}" ]; then
  "$tools/wine.sh" "$demo" "${options[@]}" --outline "$windows_folder"
  "$tools/demo_tour.sh" "$folder" "${options[@]}"
elif [ -n "${DISPLAY:-}" ]; then
  export QVL_USE_DISPLAY=1
  exec "$tools/with_display.sh" "$tools/wine.sh" "$demo" "${options[@]}" "$windows_folder"
else
  exec "$tools/with_display.sh" "${BASH_SOURCE[0]}" "$folder"
fi
