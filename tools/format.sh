#!/bin/bash
# format.sh [--check]: formats every C++ file of the project, or lists those that are not formatted.
set -euo pipefail

root=$(cd -- "$(dirname -- "${BASH_SOURCE[0]}")/.." && pwd)
cd "$root"

mapfile -t files < <(git ls-files '*.cpp' '*.h')
if [ "${1:-}" = --check ]; then
  exec clang-format --dry-run --Werror "${files[@]}"
fi
exec clang-format -i "${files[@]}"
