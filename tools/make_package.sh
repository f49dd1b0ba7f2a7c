#!/bin/bash
# make_package.sh: makes build/package/qvl-<version>-mingw-w64-x86_64.zip, what a host's author needs,
# and qvl-<version>-check.zip, the tests to be run on a Windows machine. The same sources give the same
# bytes. QVL_BUILD_DIR names a windows build to use as it is.
set -euo pipefail

tools=$(cd -- "$(dirname -- "${BASH_SOURCE[0]}")" && pwd)
root=$(dirname -- "$tools")
cd "$root"

version=$(sed -n 's/^project(qvl VERSION \([0-9.]*\) .*/\1/p' CMakeLists.txt)
package=qvl-$version-mingw-w64-x86_64
check=qvl-$version-check
folder=$root/build/package
export SOURCE_DATE_EPOCH=1577836800  # the time that zip and the images hold: 2020-01-01 00:00:00 UTC
windows=${QVL_BUILD_DIR:-}
if [ -z "$windows" ]; then
  "$tools/build.sh" windows
  windows=$root/build/windows
fi
"$tools/make_docs.sh"

rm -rf "$folder"
mkdir -p "$folder"

# strip_image image: moves the debug information to a file beside the image, where gdb finds it.
strip_image() {
  x86_64-w64-mingw32-objcopy --only-keep-debug "$1" "$1.debug"
  x86_64-w64-mingw32-strip --strip-all "$1"
  (cd "$(dirname "$1")" && x86_64-w64-mingw32-objcopy --add-gnu-debuglink="$(basename "$1").debug" "$(basename "$1")")
}

# zip_folder name: makes name.zip of the folder, with files in a fixed order and with a fixed time.
zip_folder() {
  cd "$folder"
  find "$1" -exec touch --no-dereference --date="@$SOURCE_DATE_EPOCH" {} +
  find "$1" -type f | LC_ALL=C sort | TZ=UTC zip -q -X -9 -@ "$1.zip"
  cd "$root"
}

umask 022
cmake --install "$windows" --prefix "$folder/$package" >/dev/null
for image in "$folder/$package/bin/"*.dll; do
  strip_image "$image"
done
x86_64-w64-mingw32-strip --strip-all -o "$folder/$package/bin/demo.exe" "$windows/bin/demo.exe"
documents=$folder/$package/share/doc/qvl
mkdir -p "$documents/docs"
cp CHANGELOG.md "$documents/"
sed -e 's#](examples)#](../../../examples)#' -e 's#](src/core/#](../../../include/qvl/#' \
  -e 's#](host/#](../../../include/qvl/#' README.md >"$documents/README.md"
cp -r docs/*.md docs/pictures "$documents/docs/"
cp -r build/docs/html "$documents/html"
cp -r examples "$folder/$package/"
cp cmake/mingw-w64.cmake "$folder/$package/examples/"
sed -i '/^# Programs built/,$d' "$folder/$package/examples/mingw-w64.cmake"
zip_folder "$package"

mkdir "$folder/$check"
# Windows' command processor finds labels reliably only in files with its own line ends.
for file in check.cmd README.txt; do
  sed 's/$/\r/' "tests/check/$file" >"$folder/$check/$file"
done
for program in qvl_tests activation_test icon_refill_test; do
  cp "$windows/bin/$program.exe" "$windows/bin/${program}_version_6.exe" "$folder/$check/"
done
cp "$windows/bin/qvl_windows_tests.exe" "$windows/bin/qvl.dll" "$windows/bin/vornutil.dll" "$folder/$check/"
x86_64-w64-mingw32-strip --strip-all "$folder/$check/"*.{dll,exe}
zip_folder "$check"

ls -l "$folder"/*.zip
