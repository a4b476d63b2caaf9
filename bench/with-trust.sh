#!/usr/bin/env bash
# Usage: with-trust.sh COMMAND ARGS...
# Runs COMMAND ARGS... --certificate FILE --key FILE with a new certificate for this machine that the system trusts: it
# is in the system's bundle, or rather in one that is mounted over it and that nobody else sees.
set -euo pipefail

bundle=/etc/ssl/certs/ca-certificates.crt
apart=(unshare --mount)
((EUID == 0)) || apart+=(--map-root-user)

work=$(mktemp -d)
trap 'rm -r "$work"' EXIT

openssl req -x509 -newkey ec -pkeyopt ec_paramgen_curve:P-256 -nodes -keyout "$work/key" -out "$work/certificate" \
  -days 2 -subj /CN=localhost -addext subjectAltName=DNS:localhost 2>"$work/log"
cat "$bundle" "$work/certificate" >"$work/bundle"

# shellcheck disable=SC2016    # these are the inner shell's
"${apart[@]}" bash -c 'mount --bind "$0" "$1" && shift && "$@"' "$work/bundle" "$bundle" \
  "$@" --certificate "$work/certificate" --key "$work/key"
