#!/usr/bin/env bash
# The 32-bit Wine that the desktop tests run on.
#
#   wine_root.sh make
#       makes what is missing or damaged and prints the kind of Wine there is, "host" or "root"
#   wine_root.sh run [--bind FOLDER:NAME]... [--prefix CHANGES] -- COMMAND...
#       runs a command in it
#
# Kind "host" is this computer's own Wine, where that runs 32-bit programs; "root" is a Debian tree of its own
# in the cache folder, so that the host's packages stay as they are. A command in a root sees FOLDER as
# /mnt/NAME, can write there and in /tmp only, and lives in a mount and process namespace of its own: when it
# ends, or this script is killed, its mounts and all its processes are gone.
#
# With --prefix the command has a Windows of its own (WINEPREFIX): a fresh one in which the files of the
# folder CHANGES stand in place of its own, and which leaves in CHANGES whatever it changes.
#
# Exit code 77: no Wine can be had here; one line on standard error names the remedy.
set -euo pipefail

readonly release=bookworm
# The last one has the letters of Japanese, Chinese and Korean.
readonly packages=(wine wine32 fonts-wine fonts-liberation fonts-wqy-microhei)
readonly cache=${KESTRELMOOR_CACHE:-$HOME/.cache/kestrelmoor}
readonly root=$cache/wine-root
readonly host_mark=$cache/host-wine
readonly template=$cache/wine-prefix
export WINEARCH=win32 WINEDEBUG="${WINEDEBUG:--all}"
export WINEDLLOVERRIDES="${WINEDLLOVERRIDES:-mscoree,mshtml=;winemenubuilder.exe=}"
here=$(cd "$(dirname "$0")" && pwd)

no_wine() {
    echo "$1" >&2
    exit 77
}

# Root ----------------------------------------------------------------------------------------------------

fingerprint() {
    echo "$release ${packages[*]}"
    (cd "$1" && find usr etc/fonts etc/alternatives \( -type f -o -type l \) -printf '%P %s %l\n') |
        LC_ALL=C sort | sha256sum
}

root_is_whole() {
    [ -f "$root/fingerprint" ] && [ "$(fingerprint "$root" 2>/dev/null)" = "$(cat "$root/fingerprint")" ]
}

# apt itself reads its sources, in whichever format they are written.
debian_mirror() {
    # shellcheck disable=SC2016  # apt fills these in
    apt-get indextargets --format '$(CREATED_BY) $(COMPONENT) $(RELEASE) $(REPO_URI)' |
        awk '$1 == "Packages" && $2 == "main" && $3 !~ /[-\/]/ { print $4; exit }'
}

# Runs in a mount namespace of its own.
fill_root() {
    local tree=$1 mirror=$2
    debootstrap --arch=i386 --variant=minbase "$release" "$tree" "$mirror"
    mount -t proc proc "$tree/proc"
    chroot "$tree" apt-get update --quiet=2
    DEBIAN_FRONTEND=noninteractive chroot "$tree" \
        apt-get install --yes --no-install-recommends --quiet=2 "${packages[@]}" </dev/null
    chroot "$tree" apt-get clean
    rm -rf "$tree"/var/lib/apt/lists/*
    umount "$tree/proc"
}

make_root() {
    [ "$(id -u)" -eq 0 ] || no_wine "No Wine for 32-bit programs: install wine32, or run as root once."
    "$here/../../tools/install_packages.sh" debootstrap ||
        no_wine "No Wine for 32-bit programs: install wine32 or debootstrap."
    unshare --mount --pid --fork --kill-child true 2>/dev/null ||
        no_wine "No Wine for 32-bit programs: this computer permits no mounts; install wine32."
    local mirror proxy=
    mirror=$(debian_mirror)
    [ -n "$mirror" ] || no_wine "No Wine for 32-bit programs: apt's sources name no Debian mirror; add one."
    eval "$(apt-config shell proxy Acquire::http::Proxy)"
    [ -z "$proxy" ] || export http_proxy=$proxy

    local new=$root.new log=$cache/wine-root.log
    rm -rf --one-file-system "$new" "$root"
    echo "making the 32-bit Wine root in $root (a minute or two)" >&2
    if ! unshare --mount --pid --fork --kill-child --propagation private \
        "$0" fill-root "$new" "$mirror" >"$log" 2>&1; then
        no_wine "No Wine for 32-bit programs: the root could not be made; $log tells why."
    fi
    fingerprint "$new" >"$new/fingerprint"
    mv "$new" "$root"
}

# Host ----------------------------------------------------------------------------------------------------

host_runs_32_bit() {
    local wine trial result=1
    wine=$(command -v wine) || return 1
    [ ! -f "$host_mark" ] || [ "$(cat "$host_mark")" != "$("$wine" --version)" ] || return 0
    trial=$(mktemp -d)
    if WINEPREFIX=$trial timeout 120 "$wine" cmd /c exit 0 >/dev/null 2>&1; then
        "$wine" --version >"$host_mark"
        result=0
    fi
    WINEPREFIX=$trial timeout 20 wineserver --kill 2>/dev/null || true
    rm -rf "$trial"
    return "$result"
}

# Prefix --------------------------------------------------------------------------------------------------

# Wine finds these fonts of its own in the prefix alone: that of the window frames' signs, without which the close
# box shows a letter, and the one that has the widths of the font of Windows' dialogs.
readonly own_fonts=(/usr/share/wine/fonts/marlett.ttf /usr/share/wine/fonts/tahoma.ttf)

# The fonts that the East Asian languages of the program ask for, and the one that stands for them.
readonly east_asian_fonts=("MS UI Gothic" "MS PGothic" "SimSun" "Gulim")
readonly east_asian_stand_in="WenQuanYi Micro Hei"

# Runs in the template, as a program of its own.
fill_template() {
    set -e
    wineboot --init
    wineserver --wait
    local font name
    for font in "${own_fonts[@]}"; do
        [ ! -f "$font" ] || cp "$font" "$WINEPREFIX/drive_c/windows/Fonts/"
    done
    for name in "${east_asian_fonts[@]}"; do
        wine reg add 'HKCU\Software\Wine\Fonts\Replacements' /v "$name" /d "$east_asian_stand_in" /f
    done
    wineserver --wait
}

template_recipe() {
    declare -p own_fonts east_asian_fonts east_asian_stand_in
    declare -f fill_template
}

# What the template was made with: it is made again for another Wine, and when its making changes.
wine_identity() {
    template_recipe
    if [ -f "$host_mark" ]; then cat "$host_mark"; else cat "$root/fingerprint"; fi
}

make_template() {
    local new=$template.new at
    rm -rf "$new" "$template"
    mkdir -p "$new"
    at=$new
    [ -f "$host_mark" ] || at=/mnt/new
    (run --bind "$new:new" -- env WINEPREFIX="$at" \
        bash -c "$(template_recipe); fill_template") >"$cache/wine-prefix.log" 2>&1 ||
        no_wine "Wine does not start; $cache/wine-prefix.log tells why."
    wine_identity >"$new/made-with"
    mv "$new" "$template"
}

# Commands ------------------------------------------------------------------------------------------------

make() {
    mkdir -p "$cache"
    exec 9>"$cache/lock"
    flock 9
    local kind=host
    if ! host_runs_32_bit; then
        kind=root
        rm -f "$host_mark"
        root_is_whole || make_root
    fi
    cmp -s <(wine_identity) "$template/made-with" || make_template
    echo "$kind"
}

# The changes lie over the template, or, where the kernel permits no such mount, in a copy of it.
mount_prefix() {
    mkdir -p "$root/mnt/prefix" "$1.work"
    if ! mount -t overlay overlay -o "lowerdir=$template,upperdir=$1,workdir=$1.work" "$root/mnt/prefix" \
        2>/dev/null; then
        cp --archive --no-clobber "$template/." "$1"
        mount --bind "$1" "$root/mnt/prefix"
    fi
    export WINEPREFIX=/mnt/prefix
}

# Process 1 of the namespace: it collects orphans, so it stays while the command runs.
run_in_root() {
    mount --bind "$root" "$root"
    mount -o remount,bind,ro "$root"
    mount -t proc proc "$root/proc"
    mount --rbind /dev "$root/dev"
    mount -t tmpfs tmpfs "$root/tmp"
    mount -t tmpfs tmpfs "$root/mnt"
    mkdir -p "$root/tmp/.X11-unix" "$root/mnt/home"
    [ ! -d /tmp/.X11-unix ] || mount --bind /tmp/.X11-unix "$root/tmp/.X11-unix"
    while [ "$1" != -- ]; do
        case $1 in
            --bind)
                mkdir -p "$root/mnt/${2##*:}"
                mount --bind "${2%:*}" "$root/mnt/${2##*:}"
                ;;
            --prefix) mount_prefix "$2" ;;
        esac
        shift 2
    done
    shift
    unset TMPDIR
    HOME=/mnt/home PATH=/usr/sbin:/usr/bin:/sbin:/bin LC_ALL=C.UTF-8 chroot "$root" "$@" || exit "$?"
}

# Without a namespace of its own Wine's server is what ends all programs of the prefix, also on a signal.
run_on_host() {
    while [ "$1" != -- ]; do
        if [ "$1" = --prefix ]; then
            cp --archive --no-clobber "$template/." "$2"
            export WINEPREFIX=$2
            trap 'wineserver --kill' EXIT
            trap 'exit 143' TERM
        fi
        shift 2
    done
    shift
    "$@" <&0 &
    wait "$!"
}

run() {
    if [ -f "$host_mark" ]; then
        run_on_host "$@"
    else
        exec unshare --mount --pid --fork --kill-child --propagation private "$0" run-in-root "$@"
    fi
}

command=${1:-}
[ $# -eq 0 ] || shift
case $command in
    make) make ;;
    run) run "$@" ;;
    run-in-root) run_in_root "$@" ;;
    fill-root) fill_root "$@" ;;
    *) sed -n '2,21s/^# \{0,1\}//p' "$0" >&2; exit 2 ;;
esac
