#!/usr/bin/env bash
# Usage: singleInstanceTest.sh COMMAND ARGS...
# COMMAND starts the program. A second copy ends by itself and opens no window; a copy started after the first
# one was killed opens. On Windows no other copy of this user's may run meanwhile.
set -euo pipefail

# shellcheck source=scripts/person.sh
source "$(dirname "${BASH_SOURCE[0]}")/../scripts/person.sh"

settings=$(mktemp -d)
export XDG_CONFIG_HOME=$settings XDG_RUNTIME_DIR=$settings    # where the lock lies, on Linux
copy=
trap 'kill_copy; rm -r "$settings"' EXIT

give_up () { echo "$1" >&2; exit 1; }
kill_copy () { [[ -z $copy ]] || { kill -KILL "$copy"; wait "$copy"; } 2>/dev/null || true; }

# Without an installation folder the program's first window is a message box.
windows () { xdotool search --onlyvisible --name '^(Klangora 4|Dorvik Rigmart and Licenses)$' 2>/dev/null || true; }
has_window () { [[ -n $(windows) ]]; }
has_no_window () { [[ -z $(windows) ]]; }

wait_until "no window is there" has_no_window
"$@" &
copy=$!
wait_until "the first copy opens" has_window
first=$(windows)
timeout 60 "$@" || give_up "The second copy did not end by itself with exit code 0."
[[ $(windows) == "$first" ]] || give_up "The second copy changed the windows."

kill_copy
wait_until "the killed copy's window is gone" has_no_window
"$@" &
copy=$!
wait_until "a copy opens after that" has_window
