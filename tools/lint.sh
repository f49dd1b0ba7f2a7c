#!/bin/bash
# lint.sh: clang-format in checking mode, then clang-tidy over every source of ours in the native
# build's compile database. Ends with status 0 only when both have nothing to say.
set -euo pipefail

tools=$(cd -- "$(dirname -- "${BASH_SOURCE[0]}")" && pwd)
root=$(dirname -- "$tools")
cd "$root"

status=0
"$tools/format.sh" --check || status=1

if [ ! -f build/native/compile_commands.json ]; then
  cmake --preset native
fi
sed -n 's/^ *"file": "\(.*\)",\{0,1\}$/\1/p' build/native/compile_commands.json |
  grep "^$root/" | grep -v "^$root/build/" | sort -u |
  xargs -r -P "$(nproc)" -n 4 clang-tidy -p build/native --quiet --warnings-as-errors='*' \
    --extra-arg=-Wno-unknown-warning-option \
    2> >(grep -v 'warnings\{0,1\} generated\.$' >&2) || status=1
exit "$status"
