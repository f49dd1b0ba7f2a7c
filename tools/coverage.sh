#!/bin/bash
# coverage.sh: runs the linux tests and reports the lines and branches of src/ that they reach, on the
# terminal and as pages in build/coverage/report.
set -euo pipefail

tools=$(cd -- "$(dirname -- "${BASH_SOURCE[0]}")" && pwd)
root=$(dirname -- "$tools")
cd "$root"

"$tools/build.sh" coverage
find build/coverage -name '*.gcda' -delete
ctest --test-dir build/coverage --output-on-failure
mkdir -p build/coverage/report
# Only the library's objects, because objects of deleted tests may be left.
gcovr --root . --object-directory build/coverage --filter 'src/' --exclude-throw-branches \
  --html-details build/coverage/report/index.html --print-summary build/coverage/src
