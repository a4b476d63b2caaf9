#!/usr/bin/env bash
# Usage: packages.sh GROUP...
# Installs the Debian packages of each GROUP that are missing. Needs neither network nor root when none is.
set -euo pipefail

group_packages ()
{
  case $1 in
    # juce-modules-source is content with any libcurl: ours must be named in the same installation.
    build)
      echo g++ cmake ninja-build ccache patch pkg-config catch2 juce-modules-source juce-tools \
        libcurl4-openssl-dev libfreetype-dev libjpeg-dev libpng-dev zlib1g-dev \
        libx11-dev libxcursor-dev libxext-dev libxinerama-dev libxrandr-dev ;;
    test) echo xvfb openbox xdotool x11-utils imagemagick fonts-dejavu-core openssl dpkg-dev ;;
    pictures) echo i3-wm ;;
    # The posix flavour of the compiler is the one that has std::mutex.
    windows)
      echo g++-mingw-w64-x86-64-posix binutils-mingw-w64-x86-64 libz-mingw-w64-dev \
        cmake nasm dpkg-dev ;;
    wine) echo wine wine64 ;;
    tools) echo clang-tidy clang-format cppcheck shellcheck ;;
    fuzz) echo clang libclang-rt-14-dev ;;
    package) echo dpkg-dev file gzip xz-utils ;;
    package-windows) echo nsis osslsigncode ;;
    package-check) echo appstream desktop-file-utils lintian man-db mmdebstrap openssl unzip jq ;;
    artwork) echo librsvg2-bin imagemagick ;;
    sandbox) echo libcli11-dev libcpp-httplib-dev libssl-dev ;;
    bench) echo libcli11-dev libcpp-httplib-dev libssl-dev libzip-dev libpugixml-dev curl openssl ;;
    *)
      echo "packages.sh: no group '$1'" >&2
      return 1 ;;
  esac
}

wanted=()
for group in "$@"; do
  names=$(group_packages "$group")
  read -ra names <<<"$names"
  wanted+=("${names[@]}")
done

missing=()
for name in "${wanted[@]}"; do
  status=$(dpkg-query --show --showformat='${db:Status-Status}' "$name" 2>/dev/null || true)
  [[ $status == installed ]] || missing+=("$name")
done

if ((${#missing[@]} == 0)); then
  exit 0
fi

as_root=()
if ((EUID != 0)); then
  if ! command -v sudo >/dev/null; then
    echo "Please install these packages as root: ${missing[*]}" >&2
    exit 1
  fi
  as_root=(sudo)
fi

echo "Installing ${missing[*]}"
apt=("${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get -qq -o DPkg::Lock::Timeout=600)
"${apt[@]}" update
"${apt[@]}" install -y --no-install-recommends "${missing[@]}"
