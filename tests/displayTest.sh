#!/usr/bin/env bash
# Usage: displayTest.sh COMMAND ARGS...
# COMMAND starts the program. Without a display, and with one that cannot be reached, it says so and ends with exit
# code 1.
set -euo pipefail

settings=$(mktemp -d)
export XDG_CONFIG_HOME=$settings
trap 'rm -r "$settings"' EXIT

for display in --unset=DISPLAY DISPLAY= DISPLAY=:4711 DISPLAY=127.0.0.1:4711; do
  code=0
  said=$(env "$display" timeout 60 "$@" 2>&1 </dev/null) || code=$?
  said=${said#JUCE v*$'\n'}    # a debug build of the framework says its name

  if ((code != 1)) || [[ $said != "Dorvik Rigmart: there is no display, or it cannot be reached." ]]; then
    echo "With $display: exit code $code, and \"$said\"" >&2
    exit 1
  fi
done
