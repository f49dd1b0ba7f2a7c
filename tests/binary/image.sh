#!/bin/bash
# Checks qvl.dll as it ships: exports, imports, flags and resources. A failed check does not end the
# script. QVL_BUILD_DIR names the windows build.
set -euo pipefail
export LC_ALL=C

here=$(cd -- "$(dirname -- "${BASH_SOURCE[0]}")" && pwd)
source_folder=$(cd -- "$here/../.." && pwd)
image=$QVL_BUILD_DIR/bin/qvl.dll
resources=$QVL_BUILD_DIR/results/image.rsrc
tool=x86_64-w64-mingw32-

mkdir -p "$(dirname -- "$resources")"
headers=$("${tool}objdump" -p "$image")
"${tool}objcopy" -O binary --only-section=.rsrc "$image" "$resources"
failed=0

# expect what wanted found
expect() {
  if [ "$2" != "$3" ]; then
    printf 'image.sh: %s: wanted "%s", found "%s"\n' "$@" >&2
    failed=1
  fi
}

# count text < bytes: prints how often the text occurs.
count() { { grep -aoF -- "$1" || true; } | wc -l; }

# Turns 16-bit text into 8-bit text and leaves 8-bit text as it is.
narrow() { tr -d '\0' <"$1"; }

# For an exported class the compiler also exports its virtual table, its type, and constructors and
# destructors that no host calls by name. These are left out.
record='(15QVLTreeViewItem|19QVLTreeViewStyleExt)'
exports=$(sed -n '/^\[Ordinal\/Name Pointer\] Table/,/^$/s/^[[:space:]]*\[ *[0-9]*\] //p' <<<"$headers" |
  grep -vxE "_ZT[VIS]$record|_ZN$record(C2|D0|D2)Ev" | "${tool}c++filt" | sort)
expect 'missing exports (<) and unexpected exports (>)' '' \
  "$(diff <(sort "$here/exports.txt") - <<<"$exports" || true)"

libraries=$(sed -n 's/^[[:space:]]*DLL Name: //p' <<<"$headers" | tr '[:upper:]' '[:lower:]')
expect 'imports from other libraries' '' \
  "$(grep -vxE '(kernel32|msvcrt|ole32|shell32|user32|vornutil)\.dll' <<<"$libraries" || true)"
expect "imports from the host's utilities" "$(sort "$here/vornutil_imports.txt")" "$(
  sed -n '/DLL Name: vornutil.dll/,/^$/s/^[[:space:]]*[0-9a-f]*[[:space:]]*[0-9]*[[:space:]]*\(_Z.*\)/\1/p' \
    <<<"$headers" | "${tool}c++filt" | sort)"
expect 'imports that must be looked up at run time' '' \
  "$(grep -oE '\<ImageList_.*' <<<"$headers" || true)"

# Address space randomisation with 64 bits, and no execution of data.
characteristics=$(sed -n 's/^DllCharacteristics[[:space:]]*/0x/p' <<<"$headers")
for flag in 0x40 0x20 0x100; do
  expect "DLL characteristic $flag" $((flag)) $((characteristics & flag))
done

# One version resource and one manifest, and nothing else.
expect 'types and numbers of the resources' $'0x000010 0x000001\n0x000018 0x000002' "$(awk '
  / Entry: / { match($0, / +/); path[RLENGTH] = $4 }
  / Leaf: / { print path[3] " " path[5] }' <<<"$headers" | tr -d ,)"

# The manifest names the execution level and no version of another library.
for text in '<requestedExecutionLevel ' 'level="asInvoker"' 'uiAccess="false"'; do
  expect "$text in the manifest" 1 "$(count "$text" <"$resources")"
done
expect '<dependency in the manifest' 0 "$(count '<dependency' <"$resources")"

# version name: prints a macro of the generated header.
version() { sed -n "s/^#define QVL_VERSION_$1 //p" "$QVL_BUILD_DIR/generated/qvl_version.h"; }

# The fixed part of a version resource begins with two constant words. The numbers of the file and
# those of the product follow.
IFS=', ' read -ra numbers <<<"$(version NUMBERS)"
expected=$(printf '%04x%04x %04x%04x' "${numbers[@]}")
found=$(od -An -v -tx4 -w4 "$resources" | tr -d '\n' |
  sed -n 's/.* feef04bd 00010000 \(.\{35\}\).*/\1/p')
expect 'version in numbers, of file and product' "$expected $expected" "$found"
text=$(version TEXT | tr -d '"')
for name in FileVersion ProductVersion; do
  expect "$name $text" 1 "$(narrow "$resources" | count "$name$text")"
done

for path in "$source_folder" "$QVL_BUILD_DIR" /home/ /root/ /tmp/; do
  expect "paths below $path" 0 "$(narrow "$image" | count "$path")"
done

exit "$failed"
