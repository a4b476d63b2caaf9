#!/usr/bin/env bash
# Usage: check-hardening.sh FILE...
# Checks that programs were built with what makes a fault in memory end them rather than take them over, and that a
# Windows program takes its libraries from the system's folder only. Symbols are read from FILE.debug beside it
# where there is one. Prints what is missing, and fails.
set -euo pipefail

failures=0

# WHAT PATTERN TEXT
expect ()
{
  if ! grep -qE -- "$2" <<<"$3"; then
    echo "$file: no $1" >&2
    failures=$((failures + 1))
  fi
}

check_elf ()
{
  local header segments dynamic symbols
  header=$(readelf --wide --file-header "$file")
  segments=$(readelf --wide --segments "$file")
  dynamic=$(readelf --wide --dynamic "$file")
  symbols=$(readelf --wide --dyn-syms "$file")

  expect "position-independent program" 'Type: +DYN \(Position-Independent' "$header"
  expect "data that is read-only once loaded" 'GNU_RELRO' "$segments"
  expect "immediate binding" 'FLAGS_1.*\bNOW\b' "$dynamic"
  expect "stack without execution" 'GNU_STACK +.* RW +0x' "$segments"
  expect "stack protector" '__stack_chk_fail' "$symbols"
  expect "fortified calls" '__mem[a-z]*_chk' "$symbols"

  if grep -qE 'RPATH|RUNPATH' <<<"$dynamic"; then
    echo "$file: looks for libraries in a folder of its own" >&2
    failures=$((failures + 1))
  fi
}

# What Windows guards by itself ("KnownDLLs"): it loads these from its own folder, whatever lies beside the program.
known_libraries='advapi32 comdlg32 gdi32 imm32 kernel32 msvcrt ole32 oleaut32 rpcrt4 shell32 shlwapi user32 ws2_32'

check_pe ()
{
  local headers characteristics libraries library symbols
  headers=$(x86_64-w64-mingw32-objdump --private-headers "$file")
  characteristics=$((16#$(sed -n 's/^DllCharacteristics[[:space:]]*//p' <<<"$headers")))

  # The bits of the PE header's DllCharacteristics.
  expect "addresses from the whole 64-bit range" . "$( ((characteristics & 0x20)) && echo yes)"
  expect "random addresses" . "$( ((characteristics & 0x40)) && echo yes)"
  expect "data without execution" . "$( ((characteristics & 0x100)) && echo yes)"
  expect "relocations, without which addresses are not random" 'Base Relocation Directory' \
    "$(grep -vE '^Entry 5 0+ 0+ ' <<<"$headers")"

  libraries=$(sed -n 's/^[[:space:]]*DLL Name: \(.*\)\.[dD][lL][lL]$/\L\1/p' <<<"$headers")
  for library in $libraries; do
    if [[ " $known_libraries " != *" $library "* ]]; then
      echo "$file: loads $library.dll at its start, from its own folder if one is there" >&2
      failures=$((failures + 1))
    fi
  done

  if [[ -f $file.debug ]]; then
    symbols=$(x86_64-w64-mingw32-nm "$file.debug")
    expect "stack protector" ' T __stack_chk_fail$' "$symbols"
    expect "fortified calls" ' T __mem[a-z]*_chk$' "$symbols"
    expect "confined search for libraries" 'searchSystemFolderOnly' "$symbols"
  fi

  expect "long paths in its manifest" 'longPathAware.*true' "$(strings --all "$file")"
}

for file in "$@"; do
  if [[ $(head --bytes=2 "$file") == MZ ]]; then
    check_pe
  else
    check_elf
  fi
done

((failures == 0))
