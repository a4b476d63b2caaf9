#!/usr/bin/env bash
# Usage: windows-libs.sh BUILD_DIR
# Makes the static PNG, JPEG and zlib libraries of the Windows build in BUILD_DIR/windows-libs. PNG and JPEG
# are built from Debian's source packages, so that they carry Debian's patches and apt has checked their
# signatures; zlib comes from Debian's package for mingw-w64.
set -euo pipefail

scripts=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
toolchain=$(realpath "$scripts/../cmake/toolchain-windows.cmake")
mkdir -p "$1"
build=$(cd "$1" && pwd)
libs=$build/windows-libs
work=$build/windows-libs.work
log=$build/windows-libs.log

key=$(
  cat "${BASH_SOURCE[0]}" "$toolchain" | sha256sum
  dpkg-query --show g++-mingw-w64-x86-64-posix libz-mingw-w64-dev
)
if [[ -f $libs/stamp && $(head -n 3 "$libs/stamp") == "$key" ]]; then
  exit 0
fi

echo "Building PNG and JPEG for Windows"
exec 3>&2 >"$log" 2>&1
trap '(($? == 0)) || { tail -n 30 "$log"; echo "Failed; the whole log is $log"; } >&3' EXIT
set -x
rm -rf "$work"
mkdir -p "$work"/{apt/{lists,cache/archives}/partial,src,build,install/{include,lib}}
cd "$work/src"

# ---- sources

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

# ---- zlib

mingw=/usr/x86_64-w64-mingw32
cp "$mingw"/include/{zlib,zconf}.h "$work/install/include"
cp "$mingw/lib/libz.a" "$work/install/lib"

# ---- PNG and JPEG

build_library ()
{
  local name=$1 source=$2
  shift 2
  cmake -S "$source" -B "$work/build/$name" -G Ninja \
    -DCMAKE_TOOLCHAIN_FILE="$toolchain" -DCMAKE_BUILD_TYPE=Release \
    -DCMAKE_INSTALL_PREFIX="$work/install" "$@"
  cmake --build "$work/build/$name"
  cmake --install "$work/build/$name"
}

build_library png libpng1.6-*/ -DPNG_SHARED=OFF -DPNG_TESTS=OFF \
  -DZLIB_INCLUDE_DIR="$work/install/include" -DZLIB_LIBRARY="$work/install/lib/libz.a"

build_library jpeg libjpeg-turbo-*/ -DENABLE_SHARED=OFF -DWITH_TURBOJPEG=OFF -DREQUIRE_SIMD=ON

# The framework reads JPEG's internal header, and includes all of them inside a namespace. There the type
# "boolean" must be declared whether or not a system header has declared a global one.
cp libjpeg-turbo-*/jpegint.h "$work/install/include"
sed -i '/^#ifndef __RPCNDR_H__/,/^#endif/ { /typedef/!d }' "$work/install/include/jconfig.h"
grep -q '^typedef unsigned char boolean;' "$work/install/include/jconfig.h"

# ---- done

{ echo "$key"; printf '%s\n' *.dsc; } >"$work/install/stamp"
rm -rf "$libs"
mv "$work/install" "$libs"
rm -rf "$work"
