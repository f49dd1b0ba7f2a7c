#!/bin/bash
# Builds tests/host_project against a fresh installation, as a host would, and runs it on the
# display. QVL_BUILD_DIR names the windows build.
set -euo pipefail

here=$(cd -- "$(dirname -- "${BASH_SOURCE[0]}")" && pwd)
root=$(cd -- "$here/../.." && pwd)
tools=$root/tools
work=$QVL_BUILD_DIR/host_project

rm -rf "$work"
cmake --install "$QVL_BUILD_DIR" --prefix "$work/sdk" >/dev/null

for file in include/qvl/qvl.h lib/libqvl.dll.a bin/qvl.dll bin/vornutil.dll; do
  if [ ! -f "$work/sdk/$file" ]; then
    echo "The installation lacks $file" >&2
    exit 1
  fi
done

# Nothing but these two is ours to ship, so the library may need nothing else that is not Windows'.
for library in qvl vornutil; do
  foreign=$(x86_64-w64-mingw32-objdump -p "$work/sdk/bin/$library.dll" |
    sed -n 's/^[[:space:]]*DLL Name: //p' |
    grep -viE '^(kernel32|user32|shell32|ole32|msvcrt|vornutil)\.dll$' || true)
  if [ -n "$foreign" ]; then
    echo "$library.dll imports from $foreign" >&2
    exit 1
  fi
done

# An installation that only works from where it was made is none.
mv "$work/sdk" "$work/moved sdk"
cmake -S "$root/tests/host_project" -B "$work/build" -G Ninja \
  -DCMAKE_TOOLCHAIN_FILE="$root/cmake/mingw-w64.cmake" \
  -DCMAKE_PREFIX_PATH="$work/moved sdk" -DCMAKE_BUILD_TYPE=Release
cmake --build "$work/build"
"$tools/wine.sh" "$work/build/host.exe"
