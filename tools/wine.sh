#!/bin/sh
# Runs a Windows program: wine.sh program.exe [argument...]. Brings a display if there is none yet.
set -eu

tools=$(CDPATH='' cd -- "$(dirname -- "$0")" && pwd)
. "$tools/find_wine.sh"

if [ -z "${QVL_DISPLAY_READY:-}" ]; then
  exec "$tools/with_display.sh" "$WINE64" "$@"
fi
exec "$WINE64" "$@"
