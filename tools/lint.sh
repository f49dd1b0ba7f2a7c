#!/bin/bash
# lint.sh: checks the format of all C++ files, runs clang-tidy over the compile databases of both builds
# and shellcheck over the scripts. Prints nothing if all is well.
set -euo pipefail

tools=$(cd -- "$(dirname -- "${BASH_SOURCE[0]}")" && pwd)
root=$(dirname -- "$tools")
cd "$root"

log=$(mktemp)
trap 'rm -f "$log"' EXIT
status=0

# tidy preset folders [option...]: prints the warnings in the sources of these folders.
tidy() {
  local preset=$1 folders=$2
  shift 2
  cmake --preset "$preset" >/dev/null
  # clang's -Wconversion contains -Wsign-conversion; the compiler's own does not.
  run-clang-tidy -p "build/$preset" -quiet -j "$(nproc)" -extra-arg=-Wno-unknown-warning-option \
    -extra-arg=-Wno-sign-conversion "$@" "$root/($folders)/.*[.]cpp\$" >"$log" 2>&1 || status=1
  if grep -E 'warning:|error:' -A 3 "$log"; then
    status=1
  fi
}

"$tools/format.sh" --check || status=1
git ls-files '*.sh' .ci/run | xargs shellcheck -x || status=1

tidy linux 'src|vornutil|winsim|tests'
# The demo is a Windows program. clang does not find this compiler's standard library by itself.
library=$(x86_64-w64-mingw32-g++-posix -print-file-name=include)/c++
tidy windows demo "-extra-arg=-isystem$library" "-extra-arg=-isystem$library/x86_64-w64-mingw32"
exit "$status"
