#!/bin/bash
# same_log.sh [first-seed [last-seed [steps]]]: runs the same random scenarios on the real controls and
# on the stand-in and compares their logs line for line.
set -euo pipefail

here=$(cd -- "$(dirname -- "${BASH_SOURCE[0]}")" && pwd)
root=$(cd -- "$here/../.." && pwd)
first=${1:-1}
last=${2:-60}
steps=${3:-400}

# What the scenarios leave out, because the real control behaves in its own way:
# - positions in pixels and scroll positions, which depend on the installed fonts
# - Shift with Ctrl on a press in a list, which extends from a row of much earlier presses
# - reactions while a list handles a press or a key
# - collapsing an item in a collapsed branch, and its place: the control loses count of its rows

linux=$root/build/linux
if [ ! -x "$linux/bin/random_log" ]; then
  echo "same_log: build the linux preset first" >&2
  exit 1
fi
results=$QVL_BUILD_DIR/results
mkdir -p "$results"
"$linux/bin/random_log" "$first" "$last" "$steps" "$results/log-linux.txt" &
linux_run=$!
(cd "$results" && "$root/tools/wine.sh" "$QVL_BUILD_DIR/bin/random_log.exe" "$first" "$last" "$steps" \
  log-windows.txt)
wait "$linux_run"

if ! diff --unchanged-line-format= --old-line-format='%5dn real     %L' \
  --new-line-format='%5dn stand-in %L' "$results/log-windows.txt" "$results/log-linux.txt" >"$results/log.diff"; then
  echo "same_log: the logs in $results differ, first at these lines:" >&2
  head -20 "$results/log.diff" >&2
  exit 1
fi
echo "$((last - first + 1)) scenarios of $steps steps: $(wc -l <"$results/log-linux.txt") equal lines"
