#!/bin/bash
# build.sh preset [target...]: configures a preset when needed and builds it.
set -euo pipefail

root=$(cd -- "$(dirname -- "${BASH_SOURCE[0]}")/.." && pwd)
preset=$1
shift

cd "$root"
# A configured folder looks after itself; only what a broken first run left is configured again.
if [ ! -f "build/$preset/build.ninja" ]; then
  cmake --preset "$preset"
fi
cmake --build "build/$preset" -j "${QVL_JOBS:-$(nproc)}" ${1:+--target "$@"}
