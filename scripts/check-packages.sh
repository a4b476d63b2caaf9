#!/usr/bin/env bash
# Checks what ./package.sh left in build/packages/, then installs it and tries it. Wants a display.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

packages=$PWD/build/packages
work=$PWD/build/check-packages
rm -rf "$work"
mkdir -p "$work"/{linux,source}

fail () { echo "$1" >&2; exit 1; }

(cd "$packages" && sha256sum --check --quiet SHA256SUMS)
deb=$(echo "$packages"/*.deb)
zip=$(echo "$packages"/*.zip)
installer=$(echo "$packages"/*.exe)
dpkg-deb --extract "$deb" "$work/linux"
unzip -q "$zip" -d "$work"
windows=$(echo "$work"/dorvik-rigmart-*)
linux_program=$work/linux/usr/bin/dorvik-rigmart
windows_program=$windows/DorvikRigmart.exe

# ---- hardening, and nothing of this machine

cp build/package-windows/bin/DorvikRigmart.exe.debug "$windows_program.debug"    # for the names of its functions
scripts/check-hardening.sh "$linux_program" "$windows_program"
rm "$windows_program.debug"

for file in "$linux_program" "$windows_program" "$installer"; do
  if strings --all "$file" | grep -F -e "$PWD" -e "$HOME/"; then
    fail "$file holds a path of this machine."
  fi
done

# ---- the papers

lintian --fail-on error,warning "$deb" 2>&1 | grep -v 'running with root' || ((PIPESTATUS[0] == 0))
share=$work/linux/usr/share
appstreamcli validate --no-net "$share"/metainfo/*.xml
desktop-file-validate "$share"/applications/*.desktop
manual_warnings=$(LC_ALL=C.UTF-8 MANWIDTH=80 man --warnings --local-file "$share"/man/man1/*.gz 2>&1 >/dev/null)
[[ -z $manual_warnings ]] || fail "The manual page: $manual_warnings"

grep -q 'based in part on the work of the Independent JPEG Group' "$windows/notices.txt"
for part in JUCE libpng libjpeg-turbo zlib 'GCC runtime' 'mingw-w64 runtime' NSIS; do
  grep -q "^================ $part" "$windows/notices.txt" || fail "notices.txt has nothing about $part."
done
grep -q '^================ JUCE' "$share/doc/dorvik-rigmart/copyright"

# The list of parts says what is in the program: these libraries know their own version.
part_version () { jq --exit-status --raw-output ".components[] | select(.name == \"$1\").version" "$packages"/*.cdx.json; }
png=$(part_version libpng) zlib=$(part_version zlib) jpeg=$(part_version libjpeg-turbo)
strings --all "$windows_program" >"$work/strings"
grep -qF "libpng version ${png%%-*}" "$work/strings" || fail "libpng ${png%%-*} is listed, but another one linked in."
grep -qF "inflate ${zlib%%+*} " "$work/strings" || fail "zlib ${zlib%%+*} is listed, but another one linked in."
grep -qF "${jpeg%%-*}" build/windows-libs/lib/pkgconfig/libjpeg.pc || fail "libjpeg-turbo ${jpeg%%-*} is listed."

# ---- signed with a key for a day

openssl req -x509 -newkey rsa:2048 -nodes -days 1 -subj '/CN=A test' -addext extendedKeyUsage=codeSigning \
  -keyout "$work/key.pem" -out "$work/certificate.pem" 2>"$work/openssl.log"
cp "$windows_program" "$work/signed.exe"
SIGN_CERTIFICATE=$work/certificate.pem SIGN_KEY=$work/key.pem scripts/sign.sh "$work/signed.exe"
osslsigncode verify -CAfile "$work/certificate.pem" -in "$work/signed.exe" >"$work/verify.log" ||
  { cat "$work/verify.log"; fail "The signature does not verify."; }

# ---- the source package builds the same program

tar --extract --file="$(echo "$packages"/*-source.tar.xz)" --directory="$work/source" --strip-components=1
(
  cd "$work/source"
  cmake --preset package-linux >"$work/source.log"
  cmake --build --preset package-linux >>"$work/source.log"
) || { tail -n 40 "$work/source.log"; fail "The source package does not build."; }
cmp "$work/source/build/package-linux/bin/DorvikRigmart" "$linux_program" ||
  fail "The source package builds another program."

# ---- as their users would

scripts/try-debian-package.sh "$deb"
scripts/try-windows-packages.sh "$installer" "$zip"
