#!/usr/bin/env bash
# Usage: accept-expected.sh [PRESET]
# Takes over what the last run of the tests found to differ from tests/expected/. Read the difference before you
# commit it. PRESET is linux unless told.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

shopt -s nullglob
folder=build/${1:-linux}/found
rm -f "$folder"/*-difference.png
found=("$folder"/*.{txt,png})
((${#found[@]})) || { echo "Nothing differs."; exit; }
mv --verbose "${found[@]}" tests/expected/
git --no-pager diff --stat -- tests/expected
