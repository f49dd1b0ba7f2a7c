#!/bin/bash
# run_tests.sh [preset...]: builds the presets (default: linux and windows), runs their tests, and
# ends with one line, `N passed, N failed`: the GoogleTest cases of all programs, each script test
# as one. A preset that does not build and a program that ends badly count as failed too.
set -euo pipefail

here=$(cd -- "$(dirname -- "${BASH_SOURCE[0]}")" && pwd)
root=$(cd -- "$here/../.." && pwd)
tools=$root/tools
presets=("$@")
if [ ${#presets[@]} -eq 0 ]; then
  presets=(linux windows)
fi

cd "$root"
if [ -z "${QVL_DISPLAY_READY:-}" ]; then
  exec "$tools/with_display.sh" "$here/run_tests.sh" "${presets[@]}"
fi

passed=0
failed=0
built=()
for preset in "${presets[@]}"; do
  if "$tools/build.sh" "$preset"; then
    built+=("$preset")
  else
    echo "The $preset build failed." >&2
    failed=$((failed + 1))
  fi
done

# The presets' tests go on side by side; only one of them has windows on the display.
runs=()
for preset in "${built[@]}"; do
  folder=build/$preset
  rm -rf "$folder/results" "$folder/ctest.xml"
  ctest --test-dir "$folder" --output-on-failure --no-tests=error \
    --output-junit ctest.xml >"$folder/ctest.log" 2>&1 &
  runs+=($!)
done
for i in "${!built[@]}"; do
  wait "${runs[$i]}" || true
  echo "== ${built[$i]}"
  cat "build/${built[$i]}/ctest.log"
  counts=$("$here/count_tests.sh" "build/${built[$i]}")
  passed=$((passed + ${counts% *}))
  failed=$((failed + ${counts#* }))
done

echo "$passed passed, $failed failed"
[ "$failed" -eq 0 ] && [ "$passed" -gt 0 ]
