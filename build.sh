#!/usr/bin/env bash
# Builds the program's folder (out/program) and the same logic for this computer (out/native).
set -eu
cd "$(dirname "$0")"

tools/install_packages.sh cmake ninja-build g++ g++-mingw-w64-i686-win32 binutils-mingw-w64-i686 \
  nlohmann-json3-dev libgtest-dev googletest python3 python3-polib python3-pefile gettext

build() {
  local preset=$1
  shift
  cmake --preset "$preset" >/dev/null
  cmake --build --preset "$preset" --target "$@"
}
build native practice languages help_pages
build windows Moorlink languages help_pages

rm -rf out/program
cp -r out/windows/program out/program
echo "out/program/Moorlink.exe, its language libraries and its help pages; out/native/practice, the practice console"
