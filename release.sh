#!/usr/bin/env bash
# Makes a release into out/release: builds everything twice, in two folders of different names and lengths and more
# than a year apart, and compares the results byte by byte. Leaves the program's folder, the set-up program, the
# package for fleets and the presets there, with SHA256SUMS and TOOLS (what they were made with). Exit code 1 when
# the two builds differ.
#
# The date in the files is that of the last commit, or SOURCE_DATE_EPOCH. A compiler cache that the environment
# names is used by the first build alone; the second compiles everything.
#
# With a certificate in the environment the files are signed after the comparison, each installer being made
# again from the signed executable; paths are full, or start in the project's folder:
#   KESTRELMOOR_SIGNING_CERTIFICATE    the certificate with its chain, PEM or SPC
#   KESTRELMOOR_SIGNING_KEY            its private key, PEM, DER or PVK
#   KESTRELMOOR_SIGNING_PASSWORD_FILE  a file with the key's password, where it has one
#   KESTRELMOOR_SIGNING_TIMESTAMP_URL  a time stamp server (RFC 3161); without it the signatures end with the
#                                      certificate, and the date of the last commit stands in them
set -euo pipefail
cd "$(dirname "$0")"
readonly project=$PWD out=$PWD/out/release
readonly parts=(program installer)

git_date() {
  git log -1 --format=%ct
}
SOURCE_DATE_EPOCH=${SOURCE_DATE_EPOCH:-$(git_date)}
export SOURCE_DATE_EPOCH TZ=UTC LC_ALL=C.UTF-8

# What would be committed, and nothing that an earlier build has left.
copy_sources() {
  mkdir -p "$1"
  git ls-files -z --cached --others --exclude-standard | while IFS= read -r -d '' file; do
    [ ! -e "$file" ] || printf '%s\0' "$file"
  done | tar --null --files-from=- --create | tar --extract --directory "$1"
}

build_in() {
  local folder=$1
  shift
  copy_sources "$folder"
  echo "building in $folder"
  if ! (cd "$folder" && "$@" ./build.sh "${parts[@]}") >"$work/build.log" 2>&1; then
    tail -n 20 "$work/build.log" >&2
    return 1
  fi
}

sums() {
  (cd "$1" && find "${@:2}" -type f -print0 | LC_ALL=C sort --zero-terminated | xargs -0 sha256sum)
}

compare() {
  if ! diff <(sums "$1/out" "${parts[@]}") <(sums "$2/out" "${parts[@]}"); then
    echo "release.sh: the two builds differ in the files above" >&2
    return 1
  fi
  echo "$(sums "$1/out" "${parts[@]}" | wc -l) files are the same, byte by byte, in both builds"
}

list_tools() {
  local package
  echo "date of the sources: $(date --utc --date="@$SOURCE_DATE_EPOCH" --iso-8601=seconds)"
  echo "commit: $(git rev-parse HEAD)"
  [ -z "$(git status --porcelain)" ] || echo "with changes that are not committed"
  for package in g++-mingw-w64-i686-win32 binutils-mingw-w64-i686 mingw-w64-i686-dev cmake ninja-build nsis wixl \
    msitools python3 python3-polib python3-olefile gettext; do
    dpkg-query --show --showformat='${Package} ${Version}\n' "$package"
  done
}

sign_release() {
  if [ -z "${KESTRELMOOR_SIGNING_CERTIFICATE:-}${KESTRELMOOR_SIGNING_KEY:-}" ]; then
    echo "no certificate is given: the files are unsigned"
    return
  fi
  if [ -z "${KESTRELMOOR_SIGNING_CERTIFICATE:-}" ] || [ -z "${KESTRELMOOR_SIGNING_KEY:-}" ]; then
    echo "release.sh: KESTRELMOOR_SIGNING_CERTIFICATE and KESTRELMOOR_SIGNING_KEY belong together; name both" >&2
    exit 2
  fi
  tools/install_packages.sh osslsigncode
  local name
  for name in CERTIFICATE KEY PASSWORD_FILE; do
    name=KESTRELMOOR_SIGNING_$name
    [ -z "${!name:-}" ] || export "$name=$(realpath "${!name}")"
  done
  tools/sign.sh "$out/program/Moorlink.exe"
  SIGN_COMMAND=$project/tools/sign.sh /usr/bin/python3 -B installer/build.py --program "$out/program" \
    --out "$out/installer" >/dev/null
  tools/sign.sh "$out"/installer/*.exe "$out"/installer/*.msi
  cp -r installer/policy "$out/installer/policy"
  echo "the files are signed"
}

tools/install_packages.sh faketime git
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
build_in "$work/one" env
build_in "$work/quite-another-folder/of-kestrelmoor" env CCACHE_RECACHE=1 faketime -f "+400d"
compare "$work/one" "$work/quite-another-folder/of-kestrelmoor"

rm -rf "$out"
mkdir -p "$out"
for part in "${parts[@]}"; do
  cp -r "$work/one/out/$part" "$out/$part"
done
sign_release
list_tools >"$out/TOOLS"
sums "$out" "${parts[@]}" TOOLS >"$out/SHA256SUMS"
echo "$out"
