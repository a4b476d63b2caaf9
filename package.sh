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

scripts/packages.sh build package
mkdir -p build/packages

for preset in "${presets[@]}"; do
  if [[ $preset == windows ]]; then
    scripts/packages.sh windows
    scripts/windows-libs.sh build
  fi

  cmake --preset "$preset"
  cmake --build --preset "$preset" --target DorvikRigmart
  (cd "build/$preset" && cpack --config CPackConfig.cmake -B "$PWD/packages")
  find "build/$preset/packages" -maxdepth 1 -name 'dorvik-rigmart*' -type f -exec cp {} build/packages/ \;
done

ls -l build/packages
