#!/bin/bash
# fuzz.sh [seconds]: runs the fuzzer on the linux library. Findings go to build/fuzz-findings. Add a
# fixed one to tests/random/findings.
set -euo pipefail

tools=$(cd -- "$(dirname -- "${BASH_SOURCE[0]}")" && pwd)
root=$(dirname -- "$tools")
seconds=${1:-60}
cd "$root"

"$tools/build.sh" fuzz qvl_fuzz
mkdir -p build/fuzz-corpus build/fuzz-findings
build/fuzz/bin/qvl_fuzz -max_total_time="$seconds" -max_len=600 -timeout=20 -rss_limit_mb=4096 \
  -print_final_stats=1 -artifact_prefix=build/fuzz-findings/ build/fuzz-corpus tests/random/findings
