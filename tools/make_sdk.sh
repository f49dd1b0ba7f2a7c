#!/bin/bash
# make_sdk.sh [folder]: installs what a host needs, by default to build/sdk.
set -euo pipefail

tools=$(cd -- "$(dirname -- "${BASH_SOURCE[0]}")" && pwd)
root=$(dirname -- "$tools")
folder=${1:-$root/build/sdk}

"$tools/build.sh" windows qvl vornutil
# A file that is no longer part of it must not stay from an earlier time.
rm -rf "$folder"
cmake --install "$root/build/windows" --prefix "$folder"
