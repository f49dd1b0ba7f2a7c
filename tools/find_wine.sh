# shellcheck shell=sh
# Sourced: sets WINE64 and WINESERVER to the programs themselves. The distribution's `wine` script is
# not used, because it may insist on 32-bit parts that nothing here needs.

find_first() {
  for candidate in "$@"; do
    if [ -x "$candidate" ]; then
      echo "$candidate"
      return 0
    fi
  done
  echo "None of these exists: $*. Run tools/install_packages.sh." >&2
  return 1
}

WINE64=$(find_first /usr/lib/wine/wine64 /usr/bin/wine64 /usr/lib/wine64/wine64)
WINESERVER=$(find_first /usr/lib/wine/wineserver64 /usr/lib/wine/wineserver /usr/bin/wineserver)
export WINE64 WINESERVER
