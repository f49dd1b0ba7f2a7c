#!/bin/bash
# install_packages.sh [build|lint|fuzz|coverage]: installs what is missing of the packages for that purpose.
# When nothing is missing it asks no network; without root it names the command and stops.
set -euo pipefail

tools=$(cd -- "$(dirname -- "${BASH_SOURCE[0]}")" && pwd)
# shellcheck source=tools/packages.sh
. "$tools/packages.sh"

case "${1:-build}" in
  build) wanted=("${build_packages[@]}") ;;
  lint) wanted=("${build_packages[@]}" "${lint_packages[@]}") ;;
  fuzz) wanted=("${build_packages[@]}" "${fuzz_packages[@]}") ;;
  coverage) wanted=("${build_packages[@]}" "${coverage_packages[@]}") ;;
  *)
    echo "usage: install_packages.sh [build|lint|fuzz|coverage]" >&2
    exit 2
    ;;
esac

if ! command -v dpkg-query >/dev/null; then
  echo "This is not a Debian system. Install the counterparts of: ${wanted[*]}" >&2
  exit 1
fi

missing=()
for package in "${wanted[@]}"; do
  state=$(dpkg-query -W -f='${db:Status-Status}' "$package" 2>/dev/null || true)
  if [ "$state" != installed ]; then
    missing+=("$package")
  fi
done
if [ ${#missing[@]} -eq 0 ]; then
  exit 0
fi

if [ "$(id -u)" -ne 0 ]; then
  echo "Some packages are missing. Run this, then try again:" >&2
  echo "  sudo apt-get update && sudo apt-get install --no-install-recommends ${missing[*]}" >&2
  exit 1
fi

echo "Installing: ${missing[*]}"
export DEBIAN_FRONTEND=noninteractive
install=(apt-get install -y --no-install-recommends "${missing[@]}")
# The package lists of this machine may be old or absent: then they are fetched, once.
if ! "${install[@]}" >/dev/null 2>&1; then
  apt-get update
  "${install[@]}"
fi
