#!/usr/bin/env bash
# Runs every test and prints one closing line; `./test.sh native`, `desktop` or `interop` runs a part.
set -u
cd "$(dirname "$0")"

rings=("$@")
[ $# -gt 0 ] || rings=(native desktop interop)
for ring in "${rings[@]}"; do
  case "$ring" in
    native | desktop | interop) ;;
    *)
      echo "test.sh: there is no ring '$ring'; name native, desktop, interop, or nothing for all" >&2
      exit 2
      ;;
  esac
done

tools/install_packages.sh clang-format clang-tidy cppcheck clang libclang-rt-14-dev python3-clang-14 libgtest-dev \
  librsvg2-bin python3-pil faketime osslsigncode openssl || exit 1
# Made while the compilers run; the tests that need it wait for it, and tell what is wrong with it.
case " ${rings[*]} " in
  *desktop* | *interop*) tests/desktop/wine_root.sh make >/dev/null 2>&1 & ;;
esac
if ! { ./build.sh && cmake --build --preset windows; }; then
  echo "0 passed, 1 failed"
  exit 1
fi
exec /usr/bin/python3 tests/run_rings.py "${rings[@]}"
