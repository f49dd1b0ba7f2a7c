#!/bin/bash
# build.sh preset [target...]: configures a preset if needed, and builds it.
set -euo pipefail

root=$(cd -- "$(dirname -- "${BASH_SOURCE[0]}")/.." && pwd)
preset=$1
shift

cd "$root"
# Configures again what an interrupted first run has left.
if [ ! -f "build/$preset/build.ninja" ]; then
  cmake --preset "$preset"
fi
cmake --build "build/$preset" -j "${QVL_JOBS:-$(nproc)}" ${1:+--target "$@"}
