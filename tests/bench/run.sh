#!/usr/bin/env bash
# run.sh [logic] [process]: measures the logic, whole processes, or without a word both, and prints the
# figures. They mean something on a computer that does nothing else.
set -euo pipefail

here=$(cd "$(dirname "$0")" && pwd)
cd "$here/../.."

build() {
    local preset=$1
    shift
    cmake --preset "$preset" >/dev/null
    cmake --build --preset "$preset" --target "$@" >/dev/null
}

measure_logic() {
    tools/install_packages.sh cmake ninja-build g++ nlohmann-json3-dev libgtest-dev libbenchmark-dev \
        python3 python3-polib gettext
    build native logic_bench
    /usr/bin/python3 -B "$here/logic.py" out/native/tests/bench/logic_bench
}

measure_processes() {
    tools/install_packages.sh cmake ninja-build g++-mingw-w64-i686-win32 binutils-mingw-w64-i686 googletest \
        nlohmann-json3-dev python3 python3-polib gettext util-linux xvfb xdotool imagemagick
    build windows Moorlink languages driver bare_programs \
        stand_in_directory stand_in_netapi32 stand_in_netmsg
    /usr/bin/python3 -B "$here/whole_process.py"
    /usr/bin/python3 -B "$here/settings_dialog.py"
}

[ $# -gt 0 ] || set -- logic process
for part in "$@"; do
    case "$part" in
        logic) measure_logic ;;
        process) measure_processes ;;
        *)
            echo "run.sh: there is no part '$part'; name logic or process" >&2
            exit 2
            ;;
    esac
done
