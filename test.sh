#!/usr/bin/env bash
# Installs what is missing, builds, and runs the tests.
#
#   ./test.sh             Linux
#   ./test.sh --windows   the Windows build, under Wine
#   ./test.sh --asan      Linux, with the address and undefined-behaviour sanitizers
#   ./test.sh --fuzz N    each fuzzer for N seconds
#   ./test.sh --lint      formatting and static analysis
#   ./test.sh --tours     the tours of ./run.sh, on both platforms
#   ./test.sh --package   makes what ./package.sh makes, checks it, installs, starts and removes it
#   ./test.sh --all       all of these, the Linux tests first, the fuzzers for 30 seconds each
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")"

usage ()
{
  sed -n '2,/^set/{/^set/d;s/^# \{0,1\}//;p}' "${BASH_SOURCE[0]}"
}

presets=()
fuzz_seconds=0
tours=
lint=
package=
groups=(build test sandbox)
[[ $# -gt 0 ]] || set -- --linux

while (($# > 0)); do
  case $1 in
    --linux | --asan) presets+=("${1#--}") ;;
    --windows) presets+=(windows); groups+=(windows wine) ;;
    --fuzz) fuzz_seconds=${2:?how many seconds?}; groups+=(fuzz); shift ;;
    --lint) lint=yes; groups+=(tools) ;;
    --tours) tours=yes; groups+=(windows wine) ;;
    --package) package=yes; groups+=(windows wine package package-windows package-check) ;;
    --all)
      presets=(linux asan windows); fuzz_seconds=30; lint=yes; tours=yes; package=yes
      groups+=(windows wine fuzz tools package package-windows package-check) ;;
    -h | --help) usage; exit 0 ;;
    *) usage >&2; exit 2 ;;
  esac
  shift
done

scripts/packages.sh "${groups[@]}"

# shellcheck source=scripts/display.sh
source scripts/display.sh
trap stop_display EXIT
start_display

test_preset ()
{
  if [[ $1 == windows ]]; then
    scripts/windows-libs.sh build
    scripts/wine-prefix.sh
  fi

  cmake --preset "$1"
  cmake --build --preset "$1"
  ctest --preset "$1"
}

# What fails most often comes first, and so does what the rest builds on.
if [[ " ${presets[*]} " == *" linux "* ]]; then
  test_preset linux
fi

if [[ $lint ]]; then
  cmake --preset linux
  cmake --build --preset linux    # for the generated sources, and the analysis wants code that compiles
  scripts/lint.sh
fi

for preset in "${presets[@]}"; do
  [[ $preset == linux ]] || test_preset "$preset"
done

if [[ $tours ]]; then
  ./run.sh --tour
  ./run.sh --tour --windows
fi

if ((fuzz_seconds > 0)); then
  cmake --preset fuzz
  cmake --build --preset fuzz

  for fuzzer in build/fuzz/bin/*Fuzzer; do
    name=$(basename "${fuzzer%Fuzzer}")
    echo "Fuzzing: $name, $fuzz_seconds s"
    mkdir -p "build/fuzz/corpus/$name"
    "$fuzzer" -max_total_time="$fuzz_seconds" -print_final_stats=1 -artifact_prefix="build/fuzz/$name-" \
      "build/fuzz/corpus/$name" "fuzz/corpus/$name" >"build/fuzz/$name.log" 2>&1 || {
      tail -n 60 "build/fuzz/$name.log"
      exit 1
    }
    grep number_of_executed_units "build/fuzz/$name.log"
  done
fi

if [[ $package ]]; then
  ./package.sh
  scripts/check-packages.sh
fi
