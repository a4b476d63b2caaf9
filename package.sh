#!/usr/bin/env bash
# Makes the packages: a zip for Windows and a Debian package for Linux, below build/packages/.
#
#   ./package.sh              both
#   ./package.sh --linux      one of them
#   ./package.sh --windows
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")"

presets=()
for argument in "$@"; do
  case $argument in
    --linux | --windows) presets+=("${argument#--}") ;;
    *) sed -n '2,/^set/{/^set/d;s/^# \{0,1\}//;p}' "${BASH_SOURCE[0]}"; exit 2 ;;
  esac
done
((${#presets[@]} > 0)) || presets=(linux windows)

cmake/scripts/packages.sh build package
export CMAKE_CXX_COMPILER_LAUNCHER=ccache CMAKE_C_COMPILER_LAUNCHER=ccache
mkdir -p build/packages

for preset in "${presets[@]}"; do
  if [[ $preset == windows ]]; then
    cmake/scripts/packages.sh windows
    cmake/scripts/windows-libs.sh build
  fi

  cmake --preset "$preset" -DSTORE_URL=https://store.dorvik.example
  cmake --build --preset "$preset" --target DorvikRigmart
  (cd "build/$preset" && cpack --config CPackConfig.cmake -B "$PWD/packages")
  find "build/$preset/packages" -maxdepth 1 -name 'dorvik-rigmart*' -type f -exec cp {} build/packages/ \;
done

ls -l build/packages
