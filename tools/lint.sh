#!/bin/bash
# lint.sh: checks the format of all C++ files, runs clang-tidy over the compile database of the linux
# build and shellcheck over the scripts. Prints nothing if all is well.
set -euo pipefail

tools=$(cd -- "$(dirname -- "${BASH_SOURCE[0]}")" && pwd)
root=$(dirname -- "$tools")
cd "$root"

status=0
"$tools/format.sh" --check || status=1
git ls-files '*.sh' .ci/run | xargs shellcheck -x || status=1

cmake --preset linux >/dev/null
log=$(mktemp)
trap 'rm -f "$log"' EXIT
if ! run-clang-tidy -p build/linux -quiet -j "$(nproc)" \
  -extra-arg=-Wno-unknown-warning-option "$root/(src|vornutil|winsim|demo|tests)/" >"$log" 2>&1; then
  grep -E 'warning:|error:' -A 3 "$log" || cat "$log"
  status=1
fi
exit "$status"
