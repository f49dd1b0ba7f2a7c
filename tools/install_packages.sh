#!/bin/bash
# install_packages.sh [build|test|lint|fuzz|coverage|docs]: installs the Debian packages for that purpose
# that are missing. If none is missing, it needs no network. Without root it prints the command.
set -euo pipefail

packages=(
  build-essential
  cmake
  ninja-build
  g++-mingw-w64-x86-64-posix
  googletest
  wine64
  xvfb
  xauth
  xdotool
  imagemagick
  zip
  unzip
)
case "${1:-build}" in
  build) ;;
  test) packages+=(doxygen pkg-config) ;;
  lint) packages+=(clang-format clang-tidy shellcheck) ;;
  fuzz) packages+=(clang libclang-rt-14-dev) ;;
  coverage) packages+=(gcovr) ;;
  docs) packages+=(doxygen) ;;
  *)
    echo "usage: install_packages.sh [build|test|lint|fuzz|coverage|docs]" >&2
    exit 2
    ;;
esac

if ! command -v dpkg-query >/dev/null; then
  echo "This is not a Debian system. Install the equivalents of: ${packages[*]}" >&2
  exit 1
fi

missing=()
for package in "${packages[@]}"; do
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
# The package lists may be old or absent.
if ! "${install[@]}" >/dev/null 2>&1; then
  apt-get update
  "${install[@]}"
fi
