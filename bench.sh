#!/usr/bin/env bash
# Installs what is missing, builds, measures for some minutes, and prints a table; the rest goes to standard error.
# Fails when a figure misses its reach.
#
#   ./bench.sh            everything
#   ./bench.sh TEXT...    only the rows whose names hold one of these texts
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")"

{
  scripts/packages.sh build bench sandbox test

  cmake --preset linux
  cmake --build --preset linux --target rigmartBench

  # shellcheck source=scripts/display.sh
  source scripts/display.sh
  trap stop_display EXIT
  start_display
} >&2

bench/with-trust.sh build/linux/bin/rigmartBench "$@"
