#!/usr/bin/env bash
# install_packages.sh PACKAGE...
#
# Installs those of the given Debian packages that are missing and names each one. Exit code: 0 when all of
# them are there afterwards, 1 when one could not be installed, 2 when this computer or user can't install.
set -euo pipefail

is_installed() {
    [ "$(dpkg-query --show --showformat='${db:Status-Status}' "$1" 2>/dev/null)" = installed ]
}

list_missing() {
    local package
    for package in "$@"; do
        is_installed "$package" || echo "$package"
    done
}

install() {
    apt-get install --yes --no-install-recommends --quiet=2 "$@" </dev/null 9>&-
}

main() {
    if ! command -v dpkg-query >/dev/null || ! command -v apt-get >/dev/null; then
        echo "This computer has no apt; install what these Debian packages hold by hand: $*" >&2
        return 2
    fi
    local missing
    mapfile -t missing < <(list_missing "$@")
    [ "${#missing[@]}" -gt 0 ] || return 0
    if [ "$(id -u)" -ne 0 ]; then
        echo "Packages are missing. Run as root: apt-get install ${missing[*]}" >&2
        return 2
    fi
    # Another one may be at it, and apt doesn't wait. What a package starts must not keep the lock.
    exec 9>"${TMPDIR:-/tmp}/kestrelmoor-install-packages.lock"
    flock 9
    mapfile -t missing < <(list_missing "$@")
    [ "${#missing[@]}" -gt 0 ] || return 0
    printf 'installing %s\n' "${missing[@]}"

    export DEBIAN_FRONTEND=noninteractive
    # The lists on this computer may be too old or missing: fetch them only when they don't do.
    if ! install "${missing[@]}" >/dev/null 2>&1; then
        apt-get update --quiet=2 9>&-
        install "${missing[@]}" >/dev/null
    fi
    mapfile -t missing < <(list_missing "$@")
    if [ "${#missing[@]}" -gt 0 ]; then
        echo "Could not be installed: ${missing[*]}" >&2
        return 1
    fi
}

main "$@"
