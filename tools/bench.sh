#!/bin/bash
# bench.sh [rounds [largest size]]: measures the library against the bare controls and prints the
# tables. Program, display and Wine's server share one core, so that the figures do not depend on how
# the system distributes them. With QVL_BENCH_DOC set the tables go into docs/performance.md too.
# QVL_BUILD_DIR names a build folder to use as it is.
set -euo pipefail

tools=$(cd -- "$(dirname -- "${BASH_SOURCE[0]}")" && pwd)
root=$(dirname -- "$tools")
cd "$root"

if [ -z "${QVL_DISPLAY_READY:-}" ]; then
  if [ -z "${QVL_BUILD_DIR:-}" ]; then
    cmake --preset windows -DQVL_BENCH=ON >/dev/null
    "$tools/build.sh" windows bench
  fi
  core=$(taskset -pc $$ | sed 's/.*[ ,-]//')
  exec taskset -c "$core" "$tools/with_display.sh" "${BASH_SOURCE[0]}" "$@"
fi

figures=$(mktemp)
trap 'rm -f "$figures"' EXIT
{
  processor=$(sed -n 's/^model name[[:space:]]*: //p' /proc/cpuinfo | head -n 1)
  echo "## One core of $processor, $("$tools/wine.sh" --version), $(date +%Y-%m-%d)"
  echo
  echo "Microseconds an item."
  echo
  "$tools/wine.sh" "${QVL_BUILD_DIR:-build/windows}/bin/bench.exe" "$@" | sed -u "s/\r$//"
} | tee "$figures"

if [ -n "${QVL_BENCH_DOC:-}" ]; then
  page=docs/performance.md
  sed -i -e "/^<!-- figures -->/,/^<!-- end of figures -->/{/^<!-- figures/r $figures
    /^<!--/!d}" "$page"
fi
