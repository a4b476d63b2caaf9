#!/usr/bin/env bash
# Usage: fuzz.sh SECONDS FUZZER
# Runs a fuzzer over its corpus; says how often it came through, or, if it found something, what.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

name=$(basename "${2%Fuzzer}")
log=build/fuzz/$name.log
mkdir -p "build/fuzz/corpus/$name"

if ! "$2" -max_total_time="$1" -print_final_stats=1 -artifact_prefix="build/fuzz/$name-" \
  "build/fuzz/corpus/$name" "fuzz/corpus/$name" &>"$log"; then
  tail -n 60 "$log"
  exit 1
fi
echo "$name: $(sed -n 's/^stat::number_of_executed_units: *//p' "$log") executions in $1 s"
