#!/usr/bin/env bash
# Usage: singleInstanceTest.sh COMMAND ARGS...
# COMMAND starts the program. A second copy ends by itself and opens no window; a copy started after the first
# one was killed opens. On Windows no other copy of this user's may run meanwhile.
set -euo pipefail

settings=$(mktemp -d)
export XDG_CONFIG_HOME=$settings XDG_RUNTIME_DIR=$settings    # where the lock lies, on Linux
copies=()

# Without an installation folder the program's first window is a message box.
windows ()
{
  xdotool search --onlyvisible --name '^(Klangora 4|Dorvik Rigmart and Licenses)$' 2>/dev/null || true
}

# Waits until COMMAND ARGS... succeeds; after 60 s the test has failed.
until_holds ()
{
  local deadline=$((SECONDS + 60))
  until "$@"; do
    if ((SECONDS >= deadline)); then
      echo "Waited in vain: $*" >&2
      exit 1
    fi
    sleep 0.05
  done
}

has_window () { [[ -n $(windows) ]]; }
has_no_window () { [[ -z $(windows) ]]; }

start_copy ()
{
  "$@" &
  copies+=($!)
  until_holds has_window
}

kill_copies ()
{
  local pid
  for pid in "${copies[@]}"; do
    kill -KILL "$pid" 2>/dev/null || true
    wait "$pid" 2>/dev/null || true
  done
  copies=()
  until_holds has_no_window
}

trap 'kill_copies; rm -r "$settings"' EXIT
until_holds has_no_window

start_copy "$@"
first=$(windows)

if ! timeout 60 "$@"; then
  echo "The second copy did not end by itself with exit code 0." >&2
  exit 1
fi
if [[ $(windows) != "$first" ]]; then
  echo "The second copy changed the windows." >&2
  exit 1
fi

kill_copies
start_copy "$@"
