#!/bin/bash
# coverage.sh: runs the native tests with counters and reports what they reach of src/, in lines
# and branches, on the terminal and as pages in build/coverage/report.
set -euo pipefail

tools=$(cd -- "$(dirname -- "${BASH_SOURCE[0]}")" && pwd)
root=$(dirname -- "$tools")
cd "$root"

"$tools/build.sh" coverage
find build/coverage -name '*.gcda' -delete
ctest --test-dir build/coverage --output-on-failure
mkdir -p build/coverage/report
# The library's own objects count; those of tests that are no longer there would only be missed.
gcovr --root . --object-directory build/coverage --filter 'src/' --exclude-throw-branches \
  --html-details build/coverage/report/index.html --print-summary build/coverage/src
