#!/usr/bin/env bash
# Installs what is missing, builds, measures for some minutes, and prints a table; the rest goes to standard error.
# Fails when a figure misses its reach.
#
#   ./bench.sh            everything
#   ./bench.sh OPTION...  with options of Google Benchmark, such as --benchmark_repetitions=3
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

build/linux/bin/rigmartBench "$@"
