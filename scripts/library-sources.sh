#!/usr/bin/env bash
# Usage: library-sources.sh BUILD_DIR
# Fetches Debian's sources of the PNG and the JPEG library into BUILD_DIR/library-sources, once: the Windows build
# makes its libraries of them, and the tests decode the pictures in them. They carry Debian's patches, and apt has
# checked their signatures.
set -euo pipefail

mkdir -p "$1"
build=$(cd "$1" && pwd)
sources=$build/library-sources
work=$build/library-sources.work
log=$build/library-sources.log
key=$(sha256sum <"${BASH_SOURCE[0]}")

# A build and a test may ask for them at the same time.
exec 9>"$build/library-sources.lock"
flock 9

if [[ -f $sources/stamp && $(cat "$sources/stamp") == "$key" ]]; then
  exit 0
fi

echo "Fetching the sources of PNG and JPEG"
exec 3>&2 >"$log" 2>&1
trap '(($? == 0)) || { tail -n 30 "$log"; echo "Failed; the whole log is $log"; } >&3' EXIT
set -x
rm -rf "$work"
mkdir -p "$work"/{apt/{lists,cache/archives}/partial,src}
cd "$work/src"

# Wherever this machine has its packages of the main archive from, the sources are there too. Naming the
# keyring refuses any other archive that also calls a suite "bookworm".
apt-get indextargets --no-release-info --format "\$(REPO_URI)" \
  'Identifier: Packages' 'Release: bookworm' 'Component: main' | sort -u |
  sed 's|.*|deb-src [signed-by=/usr/share/keyrings/debian-archive-keyring.gpg] & bookworm main|' \
    >"$work/apt/sources.list"

# All of apt's state is private, so any user may do this. When root does, apt's own unprivileged user need
# not be able to reach this folder.
apt=(
  apt-get -q
  -o "Dir::State=$work/apt" -o Dir::State::status=/var/lib/dpkg/status
  -o "Dir::Cache=$work/apt/cache"
  -o "Dir::Etc::sourcelist=$work/apt/sources.list" -o Dir::Etc::sourceparts=-
  -o APT::Sandbox::User=root
)
# A refused archive makes the update fail, though Debian's index has arrived: "source" is the judge.
"${apt[@]}" update || true
"${apt[@]}" --only-source source libpng1.6 libjpeg-turbo

echo "$key" >stamp
rm -rf "$sources"
mv "$work/src" "$sources"
rm -rf "$work"
