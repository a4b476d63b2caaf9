#!/usr/bin/env bash
# Usage: sign.sh FILE
# Signs a Windows program in place with the key that package.sh was told; without one it does nothing.
set -euo pipefail

if [[ -z ${SIGN_CERTIFICATE:-} ]]; then
  exit 0
fi

options=(-certs "$SIGN_CERTIFICATE" -key "$SIGN_KEY" -h sha256 -n "Dorvik Rigmart")
[[ -z ${SIGN_PASSWORD_FILE:-} ]] || options+=(-readpass "$SIGN_PASSWORD_FILE")
[[ -z ${SIGN_TIME_STAMPS:-} ]] || options+=(-ts "$SIGN_TIME_STAMPS")

osslsigncode sign "${options[@]}" -in "$1" -out "$1.signed" >/dev/null
mv "$1.signed" "$1"
