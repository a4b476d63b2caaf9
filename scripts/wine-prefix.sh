#!/usr/bin/env bash
# Makes the Wine prefix of this checkout, build/wine-prefix, unless it is there; or the one that the variable
# RIGMART_WINE_PREFIX names. Needs a display: a prefix made without one believes for ever that there is no screen,
# and window programs crash in it.
set -euo pipefail

build=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)/build
export WINEPREFIX=${RIGMART_WINE_PREFIX:-$build/wine-prefix}
export WINEDEBUG=fixme-all WINEDLLOVERRIDES="mscoree,mshtml,winemenubuilder.exe="

# Of two runs at once, the second waits for the first one's prefix.
mkdir -p "$build"
exec 9>"$WINEPREFIX.lock"
flock 9
if [[ -f $WINEPREFIX/made ]]; then
  exit 0
fi

if ! xprop -root >/dev/null 2>&1; then
  echo "wine-prefix.sh needs a display; with-display.sh gives it one." >&2
  exit 1
fi

echo "Making the Wine prefix"
rm -rf "$WINEPREFIX"

# Wine's server outlives these commands, so it must not inherit the lock. The prefix is on disk once the
# server has ended.
log=$WINEPREFIX.log
if ! { timeout 180 wineboot --init && timeout 180 wineserver --wait; } >"$log" 2>&1 9>&- ||
  [[ ! -f $WINEPREFIX/system.reg ]]; then
  cat "$log" >&2
  echo "Wine did not make its prefix." >&2
  exit 1
fi

# Documents, Desktop and their like are links into this machine's home folder; programs under test get
# folders of the prefix instead.
find "$WINEPREFIX/drive_c/users" -type l | while read -r link; do
  rm "$link"
  mkdir "$link"
done

touch "$WINEPREFIX/made"
