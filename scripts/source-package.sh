#!/usr/bin/env bash
# Usage: source-package.sh VERSION EPOCH FRAMEWORK_DIR OUTPUT_DIR
# Makes two archives in OUTPUT_DIR: the sources of this checkout, patches of the framework included, and the
# framework's modules as they are linked in, which the licence wants to be had with the program. EPOCH, in seconds
# since 1970, is the time of every file. The same sources give the same bytes.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

version=$1 epoch=$2 framework=$3 output=$(realpath "$4")
name=dorvik-rigmart-$version

# The files that git knows, as they are now; all but build/ where the tree came out of such an archive.
sources ()
{
  if [[ $(git rev-parse --show-toplevel 2>/dev/null) == "$PWD" ]]; then
    git ls-files -z
  else
    find . '(' -path ./build -o -path ./.git ')' -prune -o -type f -printf '%P\0'
  fi
}

# NAME: packs the files that it reads, separated by zero bytes, below the folder NAME.
pack ()
{
  LC_ALL=C sort -z |
    tar --create --null --files-from=- --transform "flags=r;s,^,$1/," --format=gnu \
      --mtime "@$epoch" --owner=0 --group=0 --numeric-owner --mode='u+rw,go+r,go-w' |
    xz --threads=1 >"$output/$1.tar.xz"
}

sources | pack "$name-source"
(cd "$framework" && find . -type f ! -name stamp -printf '%P\0' | pack "$name-framework")
