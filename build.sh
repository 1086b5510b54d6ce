#!/usr/bin/env bash
# build.sh [program] [installer] [native]: builds the program's folder (out/program), the set-up program and the
# package for fleets (out/installer), the same logic for this computer (out/native); without a part all three.
# The installer is made of what lies in the program's folder.
set -eu
cd "$(dirname "$0")"

build() {
  local preset=$1
  shift
  cmake --preset "$preset" >/dev/null
  cmake --build --preset "$preset" --target "$@"
}

build_native() {
  tools/install_packages.sh cmake ninja-build g++ nlohmann-json3-dev libgtest-dev googletest python3 python3-polib \
    python3-pefile gettext
  build native practice languages help_pages
  echo "out/native/practice, the practice console"
}

build_program() {
  tools/install_packages.sh cmake ninja-build g++-mingw-w64-i686-win32 binutils-mingw-w64-i686 python3 python3-polib \
    python3-pefile gettext
  build windows Moorlink languages help_pages
  rm -rf out/program
  cp -r out/windows/program out/program
  cp LICENSE out/program/LICENSE.txt
  echo "out/program/Moorlink.exe, its language libraries and its help pages"
}

build_installer() {
  tools/install_packages.sh nsis wixl msitools python3-olefile
  /usr/bin/python3 -B installer/build.py --program out/program --out out/installer
  cp -r installer/policy out/installer/policy
}

[ $# -gt 0 ] || set -- native program installer
for part in "$@"; do
  case $part in
    native | program | installer) "build_$part" ;;
    *)
      echo "build.sh: there is no part '$part'; name program, installer, native, or nothing for all" >&2
      exit 2
      ;;
  esac
done
