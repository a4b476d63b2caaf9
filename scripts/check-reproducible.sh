#!/usr/bin/env bash
# Builds every package twice, in two folders of different length one after the other, without a compiler cache, and
# compares them byte by byte. Takes several minutes, which is why it is run before a release and not with the tests.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

work=$PWD/build/reproducible
rm -rf "$work"
export CCACHE_DISABLE=1

for folder in "$work/one" "$work/another/place"; do
  mkdir -p "$folder"
  git ls-files -z | xargs -0 cp --parents --target-directory="$folder"
  echo "Building in $folder"
  (cd "$folder" && ./package.sh >"$work/log" 2>&1) || { tail -n 40 "$work/log"; exit 1; }
done

diff -r "$work/one/build/packages" "$work/another/place/build/packages"
(cd "$work/one/build/packages" && cat SHA256SUMS)
echo "The same bytes, both times."
