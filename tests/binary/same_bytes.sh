#!/bin/bash
# The same sources give the same bytes, wherever they are and wherever the build folder is. Builds the
# utility library and some objects of the library from a copy in a temporary folder and compares them
# with those of the build. QVL_BUILD_DIR names the windows build.
set -euo pipefail

source_dir=$(cd -- "$(dirname -- "${BASH_SOURCE[0]}")/../.." && pwd)
copy=$(mktemp -d)
trap 'rm -rf "$copy"' EXIT

# One object with the export macro, one with templates of all layers, and the resource.
objects=()
for source in core/library.cpp.obj tree/tree_create.cpp.obj core/qvl.rc.res; do
  objects+=("src/CMakeFiles/qvl.dir/$source")
done

build_copy() {
  mkdir "$copy/source"
  for part in CMakeLists.txt cmake src vornutil tools; do
    cp -R "$source_dir/$part" "$copy/source/"
  done
  cmake -S "$copy/source" -B "$copy/elsewhere" -G Ninja \
    -DCMAKE_TOOLCHAIN_FILE="$copy/source/cmake/mingw-w64.cmake" \
    -DCMAKE_BUILD_TYPE=Release "-DCMAKE_CXX_FLAGS_RELEASE=-O2 -DNDEBUG" \
    -DQVL_TESTS=OFF -DQVL_DEMO=OFF
  cmake --build "$copy/elsewhere" --target vornutil "${objects[@]}"
}

build_copy >"$copy/log" 2>&1 || {
  cat "$copy/log" >&2
  exit 1
}
for file in bin/vornutil.dll "${objects[@]}"; do
  cmp "$QVL_BUILD_DIR/$file" "$copy/elsewhere/$file"
done
