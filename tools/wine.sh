#!/bin/bash
# wine.sh program.exe [argument...]: runs a Windows program. Starts a display if there is none.
set -euo pipefail

tools=$(cd -- "$(dirname -- "${BASH_SOURCE[0]}")" && pwd)
# shellcheck source=tools/find_wine.sh
. "$tools/find_wine.sh"

if [ -z "${QVL_DISPLAY_READY:-}" ]; then
  exec "$tools/with_display.sh" "$WINE64" "$@"
fi
exec "$WINE64" "$@"
