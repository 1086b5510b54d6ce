#!/usr/bin/env bash
# valgrind.sh [FILTER]: runs the native tests, built for this computer without sanitizers, under valgrind. It sees what
# the sanitizers do not: memory that is read before anything was written to it. FILTER is GoogleTest's; without one
# all tests run. Fails when a test does, or when valgrind finds a fault or a block that nobody holds any more.
#
# The tests run in as many processes as there are processors, the explorer of the windows to a third of its depth.
set -euo pipefail

here=$(cd "$(dirname "$0")" && pwd)
cd "$here/../.."
readonly filter=${1:-*}
readonly tests=out/native/tests/native/native_tests
readonly reports=out/native/valgrind

tools/install_packages.sh valgrind cmake ninja-build g++ nlohmann-json3-dev libgtest-dev python3 python3-polib gettext
cmake --preset native >/dev/null
cmake --build --preset native --target native_tests
rm -rf "$reports"
mkdir -p "$reports"

# A test of an end in another process forks: the child's blocks are the parent's.
part() {
  EXPLORED_DEPTH=2 GTEST_TOTAL_SHARDS=$1 GTEST_SHARD_INDEX=$2 nice -n 5 valgrind --quiet --leak-check=full \
    --errors-for-leak-kinds=definite --show-leak-kinds=definite --child-silent-after-fork=yes --error-exitcode=9 \
    --log-file="$reports/part-$2.log" "$tests" --gtest_brief=1 --gtest_filter="$filter" >"$reports/part-$2.txt" 2>&1
}

parts=$(nproc)
running=()
for ((index = 0; index < parts; index++)); do
  part "$parts" "$index" &
  running+=($!)
done
failed=0
for process in "${running[@]}"; do
  wait "$process" || failed=1
done
cat "$reports"/part-*.txt "$reports"/part-*.log
exit "$failed"
