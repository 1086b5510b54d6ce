#!/bin/bash
# The tests against real servers. Prints `interop: N passed, N failed, N skipped` at the end; the exit code is
# that of the tests, with what could not be run at all counted as skipped.
set -u
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
"$here/../../tools/install_packages.sh" samba samba-ad-dc samba-ad-provision samba-dsdb-modules \
  samba-vfs-modules samba-common-bin winbind smbclient python3-samba ldb-tools iproute2 util-linux
exec /usr/bin/python3 "$here/run_tests.py" "$@"
