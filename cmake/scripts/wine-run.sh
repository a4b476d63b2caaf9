#!/usr/bin/env bash
# Usage: wine-run.sh PROGRAM ARGS...
# Runs a Windows program in this checkout's Wine prefix and ends with its exit code. PROGRAM may also be
# one of Wine's own, such as "reg".
set -euo pipefail

build=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)/build
export WINEPREFIX=$build/wine-prefix

# Started without a prefix, Wine would make one here and now, perhaps without a display (see wine-prefix.sh).
if [[ ! -f $WINEPREFIX/made ]]; then
  echo "There is no Wine prefix; cmake/scripts/wine-prefix.sh makes it." >&2
  exit 1
fi

# No .NET, no HTML engine, and no menu entries on the host.
export WINEDEBUG=-all WINEDLLOVERRIDES="mscoree,mshtml,winemenubuilder.exe="
exec wine "$@"
