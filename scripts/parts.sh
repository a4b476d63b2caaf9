#!/usr/bin/env bash
# What is linked into the program beside our own code, with versions and licences. One list, two uses:
#
#   parts.sh notices PLATFORM    the notices that go with the packages of linux or windows
#   parts.sh list VERSION DATE   the whole list for people's tools, as CycloneDX 1.4
#
# The framework is linked into both programs. On Linux the rest are packages of the system, which the Debian
# package depends on. The Windows program has everything in it. Wants the packages of the groups build and package,
# for Windows also mingw and the libraries of windows-libs.sh.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

documents=/usr/share/doc
libraries=build/windows-libs

package_version () { dpkg-query --show --showformat='${source:Version}' "$1"; }

# Of a library that windows-libs.sh built: the version in its source package's name.
built_version () { sed -n "s/^$1_\(.*\)\.dsc\$/\1/p" "$libraries/stamp"; }

# One line for each part: platforms, name, Debian's source package, version, licence (SPDX), file of notices
parts ()
{
  echo "linux windows|JUCE|juce|$(package_version juce-modules-source)|GPL-3.0-only AND ISC|$documents/juce-modules-source/copyright"
  [[ -f $libraries/stamp ]] || return 0
  echo "windows|libpng|libpng1.6|$(built_version libpng1.6)|libpng-2.0|$libraries/share/doc/libpng1.6/copyright"
  echo "windows|libjpeg-turbo|libjpeg-turbo|$(built_version libjpeg-turbo)|IJG AND BSD-3-Clause AND Zlib|$libraries/share/doc/libjpeg-turbo/copyright"
  echo "windows|zlib|libz-mingw-w64|$(package_version libz-mingw-w64-dev)|Zlib|$documents/libz-mingw-w64-dev/copyright"
  echo "windows|GCC runtime libraries|gcc-mingw-w64|$(package_version gcc-mingw-w64-x86-64-posix-runtime)|GPL-3.0-or-later WITH GCC-exception-3.1|$documents/gcc-mingw-w64-x86-64-posix-runtime/copyright"
  echo "windows|mingw-w64 runtime libraries|mingw-w64|$(package_version mingw-w64-x86-64-dev)|ZPL-2.1 AND MIT|$documents/mingw-w64-x86-64-dev/copyright"
  echo "windows|NSIS (installer)|nsis|$(package_version nsis-common)|Zlib AND bzip2-1.0.6 AND CPL-1.0|$documents/nsis-common/copyright"
}

parts_of () { parts | grep -E "^[a-z ]*\b$1\b[a-z ]*\|"; }

notices ()
{
  local platforms name version licence file

  cat <<TEXT
Dorvik Rigmart
Copyright Dorvik Electronics

This program is free software: you can redistribute it and/or modify it under
the terms of the GNU General Public License, version 3, as published by the
Free Software Foundation. It comes without any warranty. Its source, with the
changes to the framework, is published beside it.

TEXT

  if [[ $1 == linux ]]; then
    echo "On Debian systems the licence's text is in /usr/share/common-licenses/GPL-3."
  else
    echo "The licence's text is in the file licence.txt."
    echo
    echo "This software is based in part on the work of the Independent JPEG Group."
  fi

  printf '\nThese parts of others are in it:\n\n'
  while IFS='|' read -r platforms name _ version licence file; do
    echo "  $name $version: $licence"
  done < <(parts_of "$1")
  printf '\nTheir notices follow.\n'

  while IFS='|' read -r platforms name _ version licence file; do
    printf '\n\n================ %s %s\n\n' "$name" "$version"
    cat "$file"
  done < <(parts_of "$1")
}

# VERSION DATE
list ()
{
  local separator="" platforms name source version licence

  cat <<JSON
{
  "bomFormat": "CycloneDX",
  "specVersion": "1.4",
  "version": 1,
  "metadata": {
    "timestamp": "$2T12:00:00Z",
    "component": {
      "type": "application",
      "name": "Dorvik Rigmart",
      "version": "$1",
      "supplier": { "name": "Dorvik Electronics" },
      "licenses": [ { "expression": "GPL-3.0-only" } ]
    }
  },
  "components": [
JSON
  while IFS='|' read -r platforms name source version licence _; do
    printf '%s' "$separator"
    separator=$',\n'
    cat <<JSON | head -c -1
    {
      "type": "library",
      "name": "$name",
      "version": "$version",
      "purl": "pkg:deb/debian/$source@${version//+/%2B}?arch=source&distro=bookworm",
      "licenses": [ { "expression": "$licence" } ],
      "properties": [ { "name": "linked into", "value": "${platforms// /, }" } ]
    }
JSON
  done < <(parts)
  printf '\n  ]\n}\n'
}

case ${1:-} in
  notices | list) "$@" ;;
  *) sed -n '2,/^set/{/^set/d;s/^# \{0,1\}//;p}' "${BASH_SOURCE[0]}"; exit 2 ;;
esac
