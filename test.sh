#!/usr/bin/env bash
# Installs what is missing, builds, and runs the tests.
#
#   ./test.sh             Linux
#   ./test.sh --windows   the Windows build, under Wine
#   ./test.sh --asan      Linux, with the address and undefined-behaviour sanitizers
#   ./test.sh --all       all of these
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")"

usage ()
{
  sed -n '2,/^set/{/^set/d;s/^# \{0,1\}//;p}' "${BASH_SOURCE[0]}"
}

presets=()
for argument in "${@:---linux}"; do
  case $argument in
    --linux | --windows | --asan) presets+=("${argument#--}") ;;
    --all) presets=(linux asan windows) ;;
    -h | --help) usage; exit 0 ;;
    *) usage >&2; exit 2 ;;
  esac
done

groups=(build test)
if [[ " ${presets[*]} " == *" windows "* ]]; then
  groups+=(windows)
fi
cmake/scripts/packages.sh "${groups[@]}"

# shellcheck source=cmake/scripts/display.sh
source cmake/scripts/display.sh
trap stop_display EXIT
start_display

export CMAKE_CXX_COMPILER_LAUNCHER=ccache CMAKE_C_COMPILER_LAUNCHER=ccache

for preset in "${presets[@]}"; do
  if [[ $preset == windows ]]; then
    cmake/scripts/windows-libs.sh build
    cmake/scripts/wine-prefix.sh
  fi

  cmake --preset "$preset" -DSTORE_URL=https://store.dorvik.example
  cmake --build --preset "$preset"
  ctest --preset "$preset"
done
