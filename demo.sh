#!/usr/bin/env bash
# Changes a password on the practice network through the real window; with --watch, runs the watch on the day
# before a password expires. With a display the window is yours to use; without one it is driven, and its
# pictures are left in out/demo/.
set -eu
cd "$(dirname "$0")"

./build.sh native program
cmake --build --preset windows --target driver stand_in_netapi32 stand_in_netmsg
tools/install_packages.sh debootstrap xvfb xdotool imagemagick util-linux || true
exec /usr/bin/python3 tools/demo.py "$@"
