#!/usr/bin/env bash
# Installs what is missing, builds, and runs the tests.
#
#   ./test.sh             Linux
#   ./test.sh --windows   the Windows build, under Wine
#   ./test.sh --asan      Linux, with the address and undefined-behaviour sanitizers
#   ./test.sh --fuzz N    each fuzzer for N seconds
#   ./test.sh --lint      formatting and static analysis
#   ./test.sh --tours     the tours of ./run.sh on both platforms; sessions by keyboard alone
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
    --lint) lint=yes; groups+=(tools bench) ;;
    --tours) tours=yes; groups+=(windows wine) ;;
    --package) package=yes; groups+=(windows wine package package-windows package-check) ;;
    --all)
      presets=(linux asan windows); fuzz_seconds=30; lint=yes; tours=yes; package=yes
      groups+=(windows wine fuzz tools bench package package-windows package-check) ;;
    -h | --help) usage; exit 0 ;;
    *) usage >&2; exit 2 ;;
  esac
  shift
done

scripts/packages.sh "${groups[@]}"

# shellcheck source=scripts/display.sh
source scripts/display.sh

logs=$(mktemp -d)
builder=
clean_up ()
{
  [[ -z $builder ]] || kill -- "-$builder" 2>/dev/null || true
  stop_display
  rm -rf "$logs"
}
trap clean_up EXIT
start_display

# What keeps the processor busy. The Linux tests fail most often and come first, and so does what the rest builds on.
jobs=()
for preset in linux asan windows; do
  [[ " ${presets[*]} " != *" $preset "* ]] || jobs+=("$preset")
done
[[ -z $lint ]] || jobs+=(lint)
((fuzz_seconds == 0)) || jobs+=(fuzz)

run_job ()
{
  case $1 in
    lint) scripts/lint.sh ;;
    windows) scripts/windows-libs.sh build && cmake --preset windows && cmake --build --preset windows ;;
    *) cmake --preset "$1" && cmake --build --preset "$1" ;;
  esac
}

# One job after the other, at the lowest priority. Says of each how it ended.
run_jobs ()
{
  local job code
  renice --priority 19 --pid "$BASHPID" >/dev/null
  for job in "$@"; do
    SECONDS=0 code=0
    run_job "$job" &>"$logs/$job" || code=$?
    echo "$job: $SECONDS s, in the background" >>"$logs/$job"
    echo "$code" >"$logs/code"
    mv "$logs/code" "$logs/$job.code"
  done
}

await_job ()
{
  [[ $1 != "${jobs[0]}" ]] || return 0
  until [[ -e $logs/$1.code ]]; do
    kill -0 "$builder" || exit 1
    sleep 0.2
  done
  if (($(<"$logs/$1.code") != 0)); then
    tail -n 100 "$logs/$1"
    exit 1
  fi
  tail -n 1 "$logs/$1"
}

# The first job is waited for. The others run behind the tests of what is there already, which mostly wait.
if ((${#jobs[@]} > 0)); then
  run_job "${jobs[0]}"
  set -m    # a process group of its own, to be ended as a whole
  run_jobs "${jobs[@]:1}" &
  builder=$!
  set +m
fi

for job in "${jobs[@]}"; do
  await_job "$job"
  case $job in
    windows)
      scripts/wine-prefix.sh
      ctest --preset windows ;;
    linux | asan) ctest --preset "$job" ;;
    fuzz)
      printf '%s\0' build/fuzz/bin/*Fuzzer |
        xargs --null --max-args=1 --max-procs="$(nproc)" scripts/fuzz.sh "$fuzz_seconds" ;;
  esac
done

if [[ $tours ]]; then
  ./run.sh --tour
  ./run.sh --tour --windows
  scripts/keyboard-session.sh linux
  scripts/keyboard-session.sh windows
fi

if [[ $package ]]; then
  ./package.sh
  scripts/check-packages.sh
fi
