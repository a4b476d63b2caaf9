#!/usr/bin/env bash
# Makes what is published, in build/packages/: for Windows an installer and a zip, for Linux a Debian package; and
# beside them the sources, the list of parts and the checksums.
#
#   ./package.sh              all of it
#   ./package.sh --linux      without the Windows packages
#   ./package.sh --windows    without the Debian package
#
# Signing of the Windows programs, when told how (docs/release.md):
#
#   --certificate FILE        certificate with its chain, PEM
#   --key FILE                private key, PEM
#   --password-file FILE      of the key, when it has one
#   --time-stamps ADDRESS     the authority's time-stamp server, so that signatures outlive the certificate
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")"

usage ()
{
  sed -n '2,/^set/{/^set/d;s/^# \{0,1\}//;p}' "${BASH_SOURCE[0]}"
}

platforms=()
export SIGN_CERTIFICATE='' SIGN_KEY='' SIGN_PASSWORD_FILE='' SIGN_TIME_STAMPS=''

while (($# > 0)); do
  case $1 in
    --linux | --windows) platforms+=("${1#--}") ;;
    --certificate) SIGN_CERTIFICATE=$(realpath -e "${2:?which file?}"); shift ;;
    --key) SIGN_KEY=$(realpath -e "${2:?which file?}"); shift ;;
    --password-file) SIGN_PASSWORD_FILE=$(realpath -e "${2:?which file?}"); shift ;;
    --time-stamps) SIGN_TIME_STAMPS=${2:?which address?}; shift ;;
    -h | --help) usage; exit 0 ;;
    *) usage >&2; exit 2 ;;
  esac
  shift
done

if [[ -n $SIGN_CERTIFICATE && -z $SIGN_KEY ]] || [[ -z $SIGN_CERTIFICATE && -n $SIGN_KEY ]]; then
  echo "Signing takes both, --certificate and --key." >&2
  exit 2
fi

((${#platforms[@]} > 0)) || platforms=(linux windows)
groups=(build package)
[[ " ${platforms[*]} " != *" windows "* ]] || groups+=(windows package-windows)
scripts/packages.sh "${groups[@]}"

# What packers write depends on these.
umask 022
export TZ=UTC LC_ALL=C.UTF-8
SOURCE_DATE_EPOCH=$(sed -n 's/^set (PROGRAM_RELEASE_EPOCH \([0-9]*\)).*/\1/p' cmake/program.cmake)
export SOURCE_DATE_EPOCH

packages=build/packages
rm -rf "$packages"
mkdir -p "$packages"

for platform in "${platforms[@]}"; do
  preset=package-$platform
  [[ $platform != windows ]] || scripts/windows-libs.sh build
  cmake --preset "$preset"
  cmake --build --preset "$preset"
  rm -rf "build/$preset/packages"
  (cd "build/$preset" && cpack --config CPackConfig.cmake)
  find "build/$preset/packages" -maxdepth 1 -name 'dorvik-rigmart*' -type f -exec cp {} "$packages" \;
done

version=$(sed -n 's/^project (.* VERSION \([0-9.]*\) .*/\1/p' CMakeLists.txt)
scripts/source-package.sh "$version" "$SOURCE_DATE_EPOCH" "build/$preset/framework" "$packages"
scripts/parts.sh list "$version" "$(date --date="@$SOURCE_DATE_EPOCH" +%F)" \
  >"$packages/dorvik-rigmart-$version-parts.cdx.json"
(cd "$packages" && sha256sum -- * >SHA256SUMS)

echo
ls -l "$packages"
