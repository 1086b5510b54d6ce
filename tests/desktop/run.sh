#!/usr/bin/env bash
# run.sh [PATTERN]: the tests on a real desktop; with PATTERN those whose name holds it. Pictures are left in
# out/desktop. The last line is "desktop: N passed, N failed, N skipped".
set -euo pipefail

here=$(cd "$(dirname "$0")" && pwd)
project=$(cd "$here/../.." && pwd)

"$project/tools/install_packages.sh" python3 python3-polib python3-pefile gettext util-linux xvfb xdotool imagemagick \
    locales cmake ninja-build g++-mingw-w64-i686-win32 googletest
cd "$project"
cmake --preset windows >/dev/null
cmake --build --preset windows --target driver test_window heap_probe ran_mark bare_controls
cd "$here"
exec /usr/bin/python3 -B -u run_tests.py "$@"
