#!/bin/sh
# The same sources give the same image, wherever they lie and wherever they are built: builds a
# copy of them in a folder of its own and compares what would ship.
set -eu

source_dir=$(cd "$(dirname "$0")/../.." && pwd)
copy=$(mktemp -d)
trap 'rm -rf "$copy"' EXIT

mkdir "$copy/source"
for part in CMakeLists.txt cmake src vornutil tools; do
  cp -R "$source_dir/$part" "$copy/source/"
done
cmake -S "$copy/source" -B "$copy/elsewhere" -G Ninja \
  -DCMAKE_TOOLCHAIN_FILE="$copy/source/cmake/mingw-w64.cmake" \
  -DCMAKE_BUILD_TYPE=Release "-DCMAKE_CXX_FLAGS_RELEASE=-O2 -DNDEBUG" \
  -DQVL_TESTS=OFF -DQVL_DEMO=OFF >"$copy/log" 2>&1 || { cat "$copy/log"; exit 1; }
cmake --build "$copy/elsewhere" --target qvl vornutil >"$copy/log" 2>&1 || {
  cat "$copy/log"
  exit 1
}

for image in qvl.dll vornutil.dll; do
  cmp "$QVL_BUILD_DIR/bin/$image" "$copy/elsewhere/bin/$image"
done
