#!/bin/bash
# format.sh [--check]: formats every C++ file of the project, or only tells which are not.
set -euo pipefail

root=$(cd -- "$(dirname -- "${BASH_SOURCE[0]}")/.." && pwd)
cd "$root"

mapfile -t files < <(find src vornutil winsim demo tests bench \
  \( -name '*.cpp' -o -name '*.h' \) 2>/dev/null | sort)
if [ "${1:-}" = --check ]; then
  exec clang-format --dry-run --Werror "${files[@]}"
fi
exec clang-format -i "${files[@]}"
