#!/usr/bin/env bash
# Installs what building and testing need on a fresh Debian 12 machine (as
# root). Does nothing for packages already present.
set -euo pipefail

packages=(
  cmake ninja-build g++ clang libclang-rt-14-dev
  g++-mingw-w64-x86-64-posix gcc-mingw-w64-x86-64-posix binutils-mingw-w64-x86-64 mingw-w64-x86-64-dev
  wine wine64 fonts-wine xvfb x11-utils xauth
  libgtest-dev libgmock-dev googletest libbenchmark-dev
  imagemagick libstb-dev
)

missing=()
for package in "${packages[@]}"; do
  dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q 'install ok installed' || missing+=("$package")
done
if [ ${#missing[@]} -gt 0 ]; then
  echo "Installing: ${missing[*]}"
  export DEBIAN_FRONTEND=noninteractive
  apt-get update -qq
  apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
fi
