#!/usr/bin/env bash
# Usage: with-display.sh COMMAND ARGS...
# Runs COMMAND on a virtual display of its own and ends with its exit code.
set -euo pipefail

# shellcheck source=scripts/display.sh
source "$(dirname "${BASH_SOURCE[0]}")/display.sh"

trap stop_display EXIT
start_display
"$@"
