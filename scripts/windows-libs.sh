#!/usr/bin/env bash
# Usage: windows-libs.sh BUILD_DIR
# Makes the static PNG, JPEG and zlib libraries of the Windows build in BUILD_DIR/windows-libs. PNG and JPEG
# are built from Debian's sources (see library-sources.sh); zlib comes from Debian's package for mingw-w64.
set -euo pipefail

scripts=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
toolchain=$(realpath "$scripts/../cmake/toolchain-windows.cmake")
mkdir -p "$1"
build=$(cd "$1" && pwd)
libs=$build/windows-libs
work=$build/windows-libs.work
log=$build/windows-libs.log

key=$(
  cat "${BASH_SOURCE[0]}" "$scripts/library-sources.sh" "$toolchain" | sha256sum
  dpkg-query --show g++-mingw-w64-x86-64-posix libz-mingw-w64-dev
)
if [[ -f $libs/stamp && $(head -n 3 "$libs/stamp") == "$key" ]]; then
  exit 0
fi

"$scripts/library-sources.sh" "$build"
echo "Building PNG and JPEG for Windows"
exec 3>&2 >"$log" 2>&1
trap '(($? == 0)) || { tail -n 30 "$log"; echo "Failed; the whole log is $log"; } >&3' EXIT
set -x
rm -rf "$work"
mkdir -p "$work"/{build,install/{include,lib}}
cd "$build/library-sources"

# ---- zlib

mingw=/usr/x86_64-w64-mingw32
cp "$mingw"/include/{zlib,zconf}.h "$work/install/include"
cp "$mingw/lib/libz.a" "$work/install/lib"

# ---- PNG and JPEG

# As cmake/settings.cmake has it for everything else; and a build date that is the same every day.
flags="-fstack-protector-strong -D_FORTIFY_SOURCE=2 -ffile-prefix-map=$work/="
export SOURCE_DATE_EPOCH=0

build_library ()
{
  local name=$1 source=$2
  shift 2
  cmake -S "$source" -B "$work/build/$name" -G Ninja \
    -DCMAKE_TOOLCHAIN_FILE="$toolchain" -DCMAKE_BUILD_TYPE=Release -DCMAKE_C_FLAGS="$flags" \
    -DCMAKE_INSTALL_PREFIX="$work/install" "$@"
  cmake --build "$work/build/$name"
  cmake --install "$work/build/$name"
  install -D -m 644 "$source/debian/copyright" "$work/install/share/doc/$(basename "${source%-*}")/copyright"
}

build_library png libpng1.6-*/ -DPNG_SHARED=OFF -DPNG_TESTS=OFF \
  -DZLIB_INCLUDE_DIR="$work/install/include" -DZLIB_LIBRARY="$work/install/lib/libz.a"

build_library jpeg libjpeg-turbo-*/ -DENABLE_SHARED=OFF -DWITH_TURBOJPEG=OFF -DREQUIRE_SIMD=ON

# The framework reads JPEG's internal header, and includes all of them inside a namespace. There the type
# "boolean" must be declared whether or not a system header has declared a global one.
cp libjpeg-turbo-*/jpegint.h "$work/install/include"
sed -i '/^#ifndef __RPCNDR_H__/,/^#endif/ { /typedef/!d }' "$work/install/include/jconfig.h"
grep -q '^typedef unsigned char boolean;' "$work/install/include/jconfig.h"

# The assembler writes the paths of its sources into the objects.
x86_64-w64-mingw32-strip --strip-debug --enable-deterministic-archives "$work"/install/lib/lib{png16,jpeg}.a

# ---- done

{ echo "$key"; printf '%s\n' *.dsc; } >"$work/install/stamp"
rm -rf "$libs"
mv "$work/install" "$libs"
rm -rf "$work"
