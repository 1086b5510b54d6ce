#!/usr/bin/env bash
# run.sh: says which lines and branches of the logic, the run-time and the practice platform the native tests reach,
# and fails when they are too few or when docs/coverage.md tells another story.
set -euo pipefail

here=$(cd "$(dirname "$0")" && pwd)
cd "$here/../.."

tools/install_packages.sh cmake ninja-build clang llvm nlohmann-json3-dev libgtest-dev python3 python3-polib gettext
out=out/coverage
tests=$out/tests/native/native_tests
cmake --preset coverage >/dev/null
cmake --build --preset coverage --target native_tests
LLVM_PROFILE_FILE=$out/native_tests.profraw $tests --gtest_brief=1
llvm-profdata merge -o $out/native_tests.profdata $out/native_tests.profraw
llvm-cov export --format=lcov --instr-profile=$out/native_tests.profdata $tests >$out/lines.info
llvm-cov export --format=text --skip-functions --instr-profile=$out/native_tests.profdata $tests >$out/branches.json
exec /usr/bin/python3 -B "$here/report.py" $out/lines.info $out/branches.json docs/coverage.md
