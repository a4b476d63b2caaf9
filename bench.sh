#!/usr/bin/env bash
# Installs what is missing, builds, measures for some minutes, and prints a table; the rest goes to standard error.
# Fails when a figure misses its reach.
#
#   ./bench.sh            everything
#   ./bench.sh OPTION...  with options of Google Benchmark, such as --benchmark_repetitions=3
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")"

{
  cmake/scripts/packages.sh build bench sandbox test

  export CMAKE_CXX_COMPILER_LAUNCHER=ccache CMAKE_C_COMPILER_LAUNCHER=ccache
  cmake --preset linux -DSTORE_URL=https://store.dorvik.example
  cmake --build --preset linux --target rigmartBench

  # shellcheck source=cmake/scripts/display.sh
  source cmake/scripts/display.sh
  trap stop_display EXIT
  start_display
} >&2

build/linux/bin/rigmartBench "$@"
