#!/bin/bash
# run_demo.sh [folder]: shows a folder, by default this checkout, in the demo's tree view. On the
# user's display the window stays until it is closed. Without one the demo runs on a virtual
# display, and what it shows is left as a picture and printed as an outline.
set -euo pipefail

tools=$(cd -- "$(dirname -- "${BASH_SOURCE[0]}")" && pwd)
root=$(dirname -- "$tools")
folder=$(realpath -m -- "${1:-$root}")
windows_folder="Z:${folder//\//\\}"
demo="$root/build/windows/bin/demo.exe"
picture="$root/build/demo.png"

if [ -z "${QVL_DISPLAY_READY:-}" ]; then
  if [ -n "${DISPLAY:-}" ]; then
    export QVL_USE_DISPLAY=1
    exec "$tools/with_display.sh" "$tools/wine.sh" "$demo" "$windows_folder"
  fi
  exec "$tools/with_display.sh" "${BASH_SOURCE[0]}" "$folder"
fi

# The demo prints its outline once its window is drawn, closes it with a line of counts, and stays
# until its input ends.
coproc DEMO { exec "$tools/wine.sh" "$demo" --outline "$windows_folder"; }
demo_pid=$DEMO_PID
exec 3<&"${DEMO[0]}" 4>&"${DEMO[1]}"
while IFS= read -r line <&3; do
  line=${line%$'\r'}
  printf '%s\n' "$line"
  if [[ $line =~ ^[0-9]+\ items ]]; then
    import -silent -window root "$picture"
    echo "Picture: $picture"
    break
  fi
done
exec 4>&-
status=0
wait "$demo_pid" || status=$?
exit "$status"
