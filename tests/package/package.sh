#!/bin/bash
# The package as its reader uses it: unpacked in a folder with a space, its examples and pages built and
# run. QVL_BUILD_DIR names the windows build. QVL_PICTURES may name a folder for pictures of the programs;
# install fonts-wine before, for the signs on the buttons of the windows.
set -euo pipefail
export LC_ALL=C

here=$(cd -- "$(dirname -- "${BASH_SOURCE[0]}")" && pwd)
root=$(cd -- "$here/../.." && pwd)
work=$(mktemp -d)
desk="$work/a desk"
program=

trap 'kill "$program" 2>/dev/null || true; rm -rf "$work"' EXIT

fail() {
  echo "package.sh: $*" >&2
  exit 1
}

# quietly command...: shows what the command prints only if it fails.
quietly() {
  "$@" >"$work/log" 2>&1 || fail "this command fails: $*"$'\n'"$(cat "$work/log")"
}

make_twice() {
  quietly "$root/tools/make_package.sh"
  mkdir "$work/first"
  cp "$root"/build/package/*.zip "$work/first/"
  quietly "$root/tools/make_package.sh"
  for zip in "$work"/first/*.zip; do
    cmp "$zip" "$root/build/package/$(basename "$zip")" || fail 'the same sources give another package'
  done
}

# Follows the page word for word. Its commands unpack the package too.
follow_first_page() {
  mkdir "$desk"
  cd "$desk"
  cp "$work"/first/qvl-*-mingw-w64-x86_64.zip .
  unzip -p ./*.zip '*/docs/getting-started.md' | awk -v to=sh -f "$here/blocks.awk" >"$work/page.sh"
  quietly bash -eu "$work/page.sh"
  package=$(echo "$desk"/qvl-*-x86_64)
  documents=$package/share/doc/qvl
  export PKG_CONFIG_PATH=$package/lib/pkgconfig
}

check_versions() {
  local version
  version=$(sed -n 's/^#define QVL_VERSION "\(.*\)"/\1/p' "$package/include/qvl/qvl.h")
  [ "$(basename "$package")" = "qvl-$version-mingw-w64-x86_64" ] || fail "qvl.h has version $version"
  grep -qx "set(PACKAGE_VERSION \"$version\")" "$package/lib/cmake/qvl/qvl-config-version.cmake" ||
    fail 'the CMake package and qvl.h differ in the version'
  [ "$(pkg-config --modversion qvl)" = "$version" ] || fail 'qvl.pc and qvl.h differ in the version'
}

check_links() {
  local page link
  for page in "$documents"/*.md "$documents"/docs/*.md; do
    while read -r link; do
      [ -e "$(dirname "$page")/$link" ] || fail "$(basename "$page") names $link, which is not there"
    done < <(grep -oE '\]\([A-Za-z0-9_./-]+[)#]' "$page" | tr -d '](#)')
  done
}

compile_snippets() {
  local guide flags
  eval "flags=($(pkg-config --cflags qvl))"
  cd "$documents/docs"
  for guide in filling hosting selection; do
    awk -v to=cpp -f "$here/blocks.awk" "$guide.md" >"$work/$guide.cpp"
    quietly x86_64-w64-mingw32-g++-posix -std=c++20 -fsyntax-only -Wall -Wextra -Werror \
      -Wno-unused-variable "${flags[@]}" -include "$here/snippets.h" "$work/$guide.cpp"
  done
}

build_examples() {
  cd "$package/examples"
  quietly cmake -B build -G Ninja -DCMAKE_TOOLCHAIN_FILE=mingw-w64.cmake -DCMAKE_PREFIX_PATH="$package"
  quietly cmake --build build
  # A toolchain file that keeps CMake from finding the package by its folder.
  echo 'set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)' | cat mingw-w64.cmake - >"$work/only.cmake"
  quietly cmake -B "$work/only" -G Ninja -DCMAKE_TOOLCHAIN_FILE="$work/only.cmake" \
    -Dqvl_DIR="$package/lib/cmake/qvl"
  quietly cmake --build "$work/only" --target checked_tree
}

# check_imports libraries file...: the files import from these libraries only.
check_imports() {
  local others
  others=$(x86_64-w64-mingw32-objdump -p "${@:2}" | sed -n 's/^[[:space:]]*DLL Name: //p' |
    grep -viE "^($1)\.dll$" || true)
  [ -z "$others" ] || fail "the programs import from $others"
}

# await_window title: sets $window and the variables X, Y, WIDTH and HEIGHT of its place.
await_window() {
  window=$(timeout 60 xdotool search --sync --onlyvisible --name "^$1\$") || fail "there is no window $1"
  eval "$(xdotool getwindowgeometry --shell "$window")"
}

# start file title [argument]: runs the program until its window is there.
start() {
  "$root/tools/wine.sh" "$1" "${@:3}" &
  program=$!
  await_window "$2"
}

picture() {
  [ -z "${QVL_PICTURES:-}" ] || import -silent -pause 1 -window "$window" "$QVL_PICTURES/$1.png"
}

# Clicks the button that closes the window, and takes the exit status of the program.
stop() {
  xdotool mousemove $((X + WIDTH - 12)) $((Y + 12)) click 1
  timeout 60 tail --pid="$program" -f /dev/null || fail 'a window stays open'
  wait "$program" || fail "a program ends with status $?"
  program=
}

# try file title [argument]: the program shows its window and ends with it.
try() {
  start "$@"
  picture "$(basename "$1" .exe)"
  stop
}

make_twice
follow_first_page
check_versions
check_links
compile_snippets
build_examples
libraries='kernel32|user32|shell32|ole32|msvcrt|vornutil'
check_imports "$libraries" "$package"/bin/*.dll
check_imports "$libraries|qvl|comctl32|gdi32" "$package/bin/demo.exe" \
  "$desk/first/first.exe" "$desk/first/build/first.exe" "$package"/examples/build/*.exe

try "$desk/first/first.exe" '1 selected'
try "$desk/first/build/first.exe" '1 selected'
cd "$package/examples/build"
try checked_tree.exe '4 checked'
try sorted_list.exe Planets
try file_list.exe docs '..\..\share\doc\qvl\docs'
start two_views.exe 'Tree - F6: list'
picture two_views
xdotool key F6
await_window 'List - F6: tree'
picture two_views_list
stop
