#!/usr/bin/env bash
# sign.sh FILE...: signs Windows programs and packages in place with the certificate that the environment names;
# the head of release.sh tells the names.
set -euo pipefail

options=(-certs "$KESTRELMOOR_SIGNING_CERTIFICATE" -key "$KESTRELMOOR_SIGNING_KEY" -h sha256 -n Kestrelmoor)
if [ -n "${KESTRELMOOR_SIGNING_PASSWORD_FILE:-}" ]; then
  options+=(-readpass "$KESTRELMOOR_SIGNING_PASSWORD_FILE")
fi
if [ -n "${KESTRELMOOR_SIGNING_TIMESTAMP_URL:-}" ]; then
  options+=(-ts "$KESTRELMOOR_SIGNING_TIMESTAMP_URL")
elif [ -n "${SOURCE_DATE_EPOCH:-}" ]; then
  options+=(-time "$SOURCE_DATE_EPOCH")
fi

for file in "$@"; do
  osslsigncode sign "${options[@]}" -in "$file" -out "$file.signed" >/dev/null
  mv "$file.signed" "$file"
done
