#!/bin/bash
# run_demo.sh [folder]: shows a folder, by default this checkout, in the demo's tree view. On the
# user's display the window stays until it is closed. Without one the demo runs on a virtual
# display: it prints the tree as the view holds it, is taken through a short tour by mouse and
# keyboard, and leaves pictures and the log of the client's calls. Status 2: no such folder.
set -euo pipefail

tools=$(cd -- "$(dirname -- "${BASH_SOURCE[0]}")" && pwd)
root=$(dirname -- "$tools")
folder=$(realpath -m -- "${1:-$root}")
windows_folder="Z:${folder//\//\\}"
demo="$root/build/windows/bin/demo.exe"

# What the build leaves in the checkout is no part of what there is to see. Wine shows a link to a
# folder as a folder, and its prefixes hold one to the root of all files.
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
