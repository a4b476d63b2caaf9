#!/usr/bin/env bash
# Usage: trustTest.sh COMMAND ARGS...
# COMMAND starts the test program. It speaks to a TLS server that the system does not trust, and to the same one
# when the system does: its certificate is then in the system's bundle, or rather in one that is mounted over it
# and that nobody else sees. Wine takes its authorities from there, too. Ends with 77 where no such mount is
# allowed.
set -euo pipefail

bundle=/etc/ssl/certs/ca-certificates.crt
apart=(unshare --mount)
((EUID == 0)) || apart+=(--map-root-user)

if ! "${apart[@]}" mount --bind "$bundle" "$bundle"; then
  echo "Skipped: no mounts are allowed here."
  exit 77
fi

work=$(mktemp -d)
server=
trap '[[ -z $server ]] || kill "$server"; rm -r "$work"' EXIT

openssl req -x509 -newkey ec -pkeyopt ec_paramgen_curve:P-256 -nodes -keyout "$work/key" -out "$work/certificate" \
  -days 2 -subj /CN=localhost -addext subjectAltName=DNS:localhost 2>"$work/log"
cat "$bundle" "$work/certificate" >"$work/bundle"
printf 'HTTP/1.0 200 OK\r\nContent-Length: 7\r\n\r\ntrusted' >"$work/reply"

(cd "$work" && exec openssl s_server -HTTP -accept localhost:0 -cert certificate -key key &>server) &
server=$!
until TEST_TLS_PORT=$(grep -soP 'ACCEPT \S+:\K\d+' "$work/server"); do
  kill -0 "$server"
  sleep 0.02
done

export TEST_TLS_PORT
"$@" "[.untrusted]"
# shellcheck disable=SC2016    # these are the inner shell's
"${apart[@]}" bash -c 'mount --bind "$0" "$1" && shift && "$@"' "$work/bundle" "$bundle" "$@" "[.trusted]"
