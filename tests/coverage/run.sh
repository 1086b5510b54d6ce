#!/usr/bin/env bash
# run.sh: says which lines and branches of the logic, the run-time and the practice platform the native tests reach,
# and fails when they are too few or when docs/coverage.md tells another story.
set -euo pipefail

here=$(cd "$(dirname "$0")" && pwd)
cd "$here/../.."

tools/install_packages.sh cmake ninja-build g++ nlohmann-json3-dev libgtest-dev python3 python3-polib gettext gcovr
cmake --preset coverage >/dev/null
cmake --build --preset coverage --target native_tests
find out/coverage -name '*.gcda' -delete
out/coverage/tests/native/native_tests --gtest_brief=1
# A branch that only an exception takes is none of ours.
gcovr --root . --object-directory out/coverage --filter src/ --exclude src/platform/windows/ \
    --exclude-throw-branches --exclude-unreachable-branches --json out/coverage/report.json out/coverage
exec /usr/bin/python3 -B "$here/report.py" out/coverage/report.json docs/coverage.md
