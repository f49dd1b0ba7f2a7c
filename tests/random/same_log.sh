#!/bin/bash
# Runs the same random scenarios on the real controls and on the stand-in and compares the logs line
# for line: results, callbacks, and the items after each step.
set -euo pipefail

here=$(cd -- "$(dirname -- "${BASH_SOURCE[0]}")" && pwd)
root=$(cd -- "$here/../.." && pwd)
first=${1:-1}
last=${2:-60}
steps=${3:-400}

# What the scenarios leave out, because only the real control does it.
left_out=(
  "positions in pixels and scroll positions: they depend on the fonts that are installed"
  "Shift with Ctrl on a press in a list: the anchor depends on much earlier presses"
  "reactions while a list extends a range or begins a drag: the real control continues differently"
  "collapsing hidden items, and their rectangles: the real control computes wrong rows"
)

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

printf 'left out: %s\n' "${left_out[@]}"
if ! cmp -s "$results/log-linux.txt" "$results/log-windows.txt"; then
  echo "same_log: the logs differ (< real control, > stand-in), first at:" >&2
  line=$(cmp "$results/log-windows.txt" "$results/log-linux.txt" | sed 's/.*line //') || true
  from=$((line > 12 ? line - 12 : 1))
  grep -n '^seed' "$results/log-windows.txt" | awk -F: -v l="$line" '$1 <= l' | tail -1 >&2
  diff <(sed -n "$from,$((line + 8))p" "$results/log-windows.txt") \
    <(sed -n "$from,$((line + 8))p" "$results/log-linux.txt") --unchanged-line-format='  %L' \
    --old-line-format='< %L' --new-line-format='> %L' >&2 || true
  exit 1
fi
echo "$((last - first + 1)) scenarios of $steps steps: $(wc -l <"$results/log-linux.txt") equal lines"
