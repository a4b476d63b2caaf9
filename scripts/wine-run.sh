#!/usr/bin/env bash
# Usage: wine-run.sh PROGRAM ARGS...
# Runs a Windows program in this checkout's Wine prefix, or the one that the variable RIGMART_WINE_PREFIX names,
# and ends with its exit code. PROGRAM may also be one of Wine's own, such as "reg". Whatever signal ends this
# script kills the program, without a word to it.
set -euo pipefail

build=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)/build
export WINEPREFIX=${RIGMART_WINE_PREFIX:-$build/wine-prefix}

# Started without a prefix, Wine would make one here and now, perhaps without a display (see wine-prefix.sh).
if [[ ! -f $WINEPREFIX/made ]]; then
  echo "There is no Wine prefix; scripts/wine-prefix.sh makes it." >&2
  exit 1
fi

# No .NET, no HTML engine, no menu entries on the host, and file names in any language wherever this runs.
export LC_ALL=C.UTF-8 WINEDEBUG=-all WINEDLLOVERRIDES="mscoree,mshtml,winemenubuilder.exe="

# Wine's server and services start with the first program, which takes a second. They stay for half a minute
# after the last one, so that programs that follow each other find them. One that runs already is no error.
wineserver --persistent=30 </dev/null &>/dev/null || true

# Wine's processes in the background keep the error stream of the program that started them, and a caller
# that reads it through a pipe would wait for them, too. A file in between keeps them off.
errors=$(mktemp)
trap 'cat "$errors" >&2; rm "$errors"' EXIT
setpriv --pdeathsig KILL wine "$@" <&0 2>"$errors" &
trap 'kill -KILL $!' TERM INT
wait $!
