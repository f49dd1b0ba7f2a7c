#!/bin/bash
# Plays the same random stories on the real controls and on the stand-in and compares them line for
# line: what every operation gives, what the clients hear, what the items are after each step.
set -euo pipefail

here=$(cd -- "$(dirname -- "${BASH_SOURCE[0]}")" && pwd)
root=$(cd -- "$here/../.." && pwd)
first=${1:-1}
last=${2:-60}
steps=${3:-400}

# What the stories leave out, because the real control does something of its own.
left_out=(
  "positions in pixels and scroll positions: they depend on the fonts that are installed"
  "Shift with Ctrl on a press in a list: what it extends from depends on presses long before"
  "what a client does while a list extends a range or begins a drag: the real one goes on in its own way"
  "collapsing what a collapsed branch hides, and its place: the real control loses count of rows"
)

linux=$root/build/linux
if [ ! -x "$linux/bin/trace" ]; then
  echo "same_story: build the linux preset first" >&2
  exit 1
fi
results=$QVL_BUILD_DIR/results
mkdir -p "$results"
"$linux/bin/trace" "$first" "$last" "$steps" "$results/story-linux.txt" &
linux_run=$!
(cd "$results" && "$root/tools/wine.sh" "$QVL_BUILD_DIR/bin/trace.exe" "$first" "$last" "$steps" \
  story-windows.txt)
wait "$linux_run"

printf 'left out: %s\n' "${left_out[@]}"
if ! cmp -s "$results/story-linux.txt" "$results/story-windows.txt"; then
  echo "same_story: the stories differ (< real control, > stand-in), first at:" >&2
  line=$(cmp "$results/story-windows.txt" "$results/story-linux.txt" | sed 's/.*line //') || true
  from=$((line > 12 ? line - 12 : 1))
  grep -n '^seed' "$results/story-windows.txt" | awk -F: -v l="$line" '$1 <= l' | tail -1 >&2
  diff <(sed -n "$from,$((line + 8))p" "$results/story-windows.txt") \
    <(sed -n "$from,$((line + 8))p" "$results/story-linux.txt") --unchanged-line-format='  %L' \
    --old-line-format='< %L' --new-line-format='> %L' >&2 || true
  exit 1
fi
echo "$((last - first + 1)) stories of $steps steps: $(wc -l <"$results/story-linux.txt") equal lines"
