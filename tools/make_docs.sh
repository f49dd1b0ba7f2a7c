#!/bin/bash
# make_docs.sh: makes the HTML reference of the two headers and the guides in build/docs/html. Fails at
# any warning of Doxygen.
set -euo pipefail

root=$(cd -- "$(dirname -- "${BASH_SOURCE[0]}")/.." && pwd)
cd "$root"

rm -rf build/docs
mkdir -p build/docs
QVL_VERSION=$(sed -n 's/^project(qvl VERSION \([0-9.]*\) .*/\1/p' CMakeLists.txt) doxygen docs/Doxyfile
