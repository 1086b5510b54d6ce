#!/usr/bin/env bash
# bench.sh [--pairs N] [--page FILE] [sizes] [logic] [process] [tests]: measures all that has a goal, prints the
# figures, and after a whole run writes them into docs/figures.md. They mean something on a computer that does
# nothing else; a whole run takes about half an hour.
#   --pairs N    that many pairs and repetitions in place of the full number: quick, and no figures for the page
#   --page FILE  writes what was measured into this file, whatever it is
set -euo pipefail
cd "$(dirname "$0")"

build() {
  local preset=$1
  shift
  cmake --preset "$preset" >/dev/null
  cmake --build --preset "$preset" --target "$@" >/dev/null
}

readonly common=(cmake ninja-build nlohmann-json3-dev libgtest-dev googletest python3 python3-polib python3-pefile
  gettext)

build_sizes() {
  ./build.sh program installer
}

build_logic() {
  tools/install_packages.sh "${common[@]}" g++ libbenchmark-dev
  build native logic_bench
}

build_process() {
  tools/install_packages.sh "${common[@]}" g++-mingw-w64-i686-win32 binutils-mingw-w64-i686 util-linux xvfb xdotool \
    imagemagick
  ./build.sh program
  build windows driver bare_programs stand_in_directory stand_in_netapi32 stand_in_netmsg
}

build_tests() {
  tools/install_packages.sh "${common[@]}" g++
  build sanitized native_tests
  build native native_tests
}

options=()
parts=()
while [ $# -gt 0 ]; do
  case $1 in
    --pairs | --page)
      options+=("$1" "${2:?"bench.sh: $1 wants a value"}")
      shift
      ;;
    sizes | logic | process | tests) parts+=("$1") ;;
    *)
      echo "bench.sh: there is no part '$1'; name sizes, logic, process, tests, or nothing for all" >&2
      exit 2
      ;;
  esac
  shift
done
[ "${#parts[@]}" -gt 0 ] || parts=(sizes logic process tests)
# All is built ahead of the first figure, so that no build runs beside one.
for part in "${parts[@]}"; do
  "build_$part"
done
exec /usr/bin/python3 -B tests/bench/bench.py "${options[@]}" "${parts[@]}"
