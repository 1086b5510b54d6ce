#!/usr/bin/env bash
# run.sh [PATTERN]: the tests on a real desktop; with PATTERN those whose name holds it. Pictures are left in
# out/desktop. The last line is "desktop: N passed, N failed, N skipped".
set -euo pipefail

here=$(cd "$(dirname "$0")" && pwd)
project=$(cd "$here/../.." && pwd)

"$project/tools/install_packages.sh" python3 python3-polib util-linux xvfb xdotool imagemagick locales \
    cmake ninja-build g++-mingw-w64-i686-win32
cmake -G Ninja -S "$here/driver" -B "$project/out/desktop/build" -DCMAKE_BUILD_TYPE=MinSizeRel \
    -DCMAKE_TOOLCHAIN_FILE="$project/cmake/mingw-i686.cmake" >/dev/null
ninja -C "$project/out/desktop/build" -j "$(nproc)" --quiet
cd "$here"
exec /usr/bin/python3 -B -u run_tests.py "$@"
