#!/usr/bin/env bash
# Usage: try-windows-packages.sh INSTALLER ZIP
# Installs, starts, upgrades and removes the program in a Wine prefix of its own, as its user would. Wants a display.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

# shellcheck source=scripts/person.sh
source scripts/person.sh

installer=$(realpath "$1") zip=$(realpath "$2")
name="Dorvik Rigmart"
work=$PWD/build/try-windows
export RIGMART_WINE_PREFIX=$work/prefix
drive=$RIGMART_WINE_PREFIX/drive_c
running=

clean_up ()
{
  [[ -z $running ]] || kill "$running" 2>/dev/null || true
  WINEPREFIX=$RIGMART_WINE_PREFIX wineserver --kill 2>/dev/null || true
}
trap clean_up EXIT

give_up ()
{
  import -silent -window root "$work/failed.png" || true
  echo "$1 (the screen then: $work/failed.png)" >&2
  exit 1
}

expect () { "${@:2}" || give_up "$1"; }
wine_run () { scripts/wine-run.sh "$@"; }
exit_code () { local code=0; "$@" || code=$?; echo "$code"; }
value () { wine_run reg query "$key" /v "$1" 2>/dev/null | tr -d '\r' | sed -n "s/^ *$1 *REG_[A-Z]* *//p"; }
is_registered () { wine_run reg query "$1" &>/dev/null; }

# ---- a product with content and a remembered login

rm -rf "$work"
mkdir -p "$work"
scripts/wine-prefix.sh
mkdir -p "$drive/Klangora/gui/klangora 4"
cp assets/images/generic_background.jpg "$drive/Klangora/gui/klangora 4"
echo content >"$drive/Klangora/amp.sa"
echo login >"$drive/Klangora/rememberme.txt"
product='HKLM\SOFTWARE\Dorvik Electronics\Klangora 4'
wine_run reg add "$product" /v InstallationDir /d 'C:\Klangora' /f >/dev/null
unzip -q "$zip" -d "$work"
unpacked=$(echo "$work"/dorvik-rigmart-*)

# ---- install

expect "The installer did not end with 0." wine_run "$installer" /S
user=$(echo "$drive"/users/*/AppData/Local/Programs)
folder=$user/$name
menu=$(echo "$drive"/users/*/AppData/Roaming/Microsoft/Windows/"Start Menu"/Programs)/$name.lnk
key="HKCU\\Software\\Microsoft\\Windows\\CurrentVersion\\Uninstall\\$name"
expect "Installer and zip differ." diff -r --exclude=Uninstall.exe "$unpacked" "$folder"
expect "There is no Start menu entry." test -f "$menu"
expect "The list of installed programs has another name." test "$(value DisplayName)" == "$name"
expect "Another version is listed." test "$(value DisplayVersion)" == "$(sed -n 's/^project (.* VERSION \([0-9.]*\) .*/\1/p' CMakeLists.txt)"
expect "No icon is listed." grep -q 'DorvikRigmart.exe' <<<"$(value DisplayIcon)"
expect "No uninstaller is listed." grep -q 'Uninstall.exe' <<<"$(value UninstallString)"
size=$(($(value EstimatedSize)))
expect "A size of $size KB is listed." test "$size" -gt 1000 -a "$size" -lt 20000
expect "The installer wrote to the whole machine's list." test 1 == "$(exit_code is_registered "${key/HKCU/HKLM}")"

# ---- libraries of a stranger beside the program

cat >"$work/planted.c" <<'C'
#define WIN32_LEAN_AND_MEAN
#include <windows.h>
BOOL WINAPI DllMain (HINSTANCE module, DWORD reason, LPVOID reserved)
{
    (void) module; (void) reserved;
    if (reason == DLL_PROCESS_ATTACH)
        CloseHandle (CreateFileA ("C:\\planted", GENERIC_WRITE, 0, 0, CREATE_ALWAYS, 0, 0));
    return TRUE;
}
DWORD WINAPI timeGetTime (void)
{
    return 0;
}
C
cat >"$work/careless.c" <<'C'
#include <windows.h>
int main (void)
{
    return (int) timeGetTime();
}
C
x86_64-w64-mingw32-gcc-posix -shared -Wl,--export-all-symbols "$work/planted.c" -o "$work/planted.dll"
x86_64-w64-mingw32-gcc-posix "$work/careless.c" -o "$folder/careless.exe" -lwinmm
planted=(winmm wininet dxgi wsock32 dwmapi cryptbase propsys dcomp)    # none that Wine's own libraries need at their start
for library in "${planted[@]}"; do
  cp "$work/planted.dll" "$folder/$library.dll"
  # Wine prefers its own wherever it finds another; Windows does not.
  wine_run reg add 'HKCU\Software\Wine\DllOverrides' /v "$library" /d native,builtin /f >/dev/null
done
wine_run "$folder/careless.exe" || true
expect "The planted library does not show itself when it is loaded." test -f "$drive/planted"
rm "$drive/planted" "$folder/careless.exe"

# ---- start

start_program ()
{
  wine_run "$folder/DorvikRigmart.exe" &
  running=$!
  wait_until "the program's window" window_titled "$name and Licenses" >/dev/null
  window=$(window_titled "$name and Licenses")
  wait_until "its first page" is_still "$window"
}

has_ended () { ! kill -0 "$running" 2>/dev/null; }

quit_program ()
{
  press Escape
  wait_until "the question" window_titled "Klangora 4" >/dev/null
  wait_until "the question, painted" is_still "$(window_titled "Klangora 4")"
  press Return
  wait_until "the end" has_ended
  expect "The program did not end with 0." wait "$running"
  running=
}

start_program
expect "A planted library was loaded." test ! -e "$drive/planted"
rm "$folder"/*.dll

# ---- while it runs

expect "The silent installer did not refuse while the program ran." test 2 == "$(exit_code wine_run "$installer" /S)"
short_folder=$(wine_run winepath --short "$(wine_run winepath -w "$folder" | tr -d '\r')" | tr -d '\r')
expect "The silent uninstaller did not refuse." \
  test 2 == "$(exit_code wine_run "$folder/Uninstall.exe" /S "_?=$short_folder")"    # in place, so that it has ended
expect "Something was changed while the program ran." diff -r --exclude=Uninstall.exe "$unpacked" "$folder"

# The wizard and its message box have the same title; the box is the newer one.
front_window () { xdotool getactivewindow 2>/dev/null; }
setup_is_in_front () { [[ $(xdotool getactivewindow getwindowname 2>/dev/null) == "$name Setup"* ]]; }
box_is_in_front () { setup_is_in_front && [[ $(front_window) != "$wizard" ]]; }
wine_run "$installer" &
setup=$!
wait_until "the installer's window" setup_is_in_front
wizard=$(front_window)
wait_until "its first page" is_still "$wizard"
press Return
wait_until "the box that says that the program runs" box_is_in_front
wait_until "the box, painted" is_still "$(front_window)"
take_picture "$work/it-runs.png"
press Escape
code=0
wait "$setup" || code=$?
expect "The installer did not end with 2 when cancelled." test "$code" == 2
quit_program

# ---- upgrade, and removal

echo older >"$folder/read-me.txt"
expect "The upgrade did not end with 0." wine_run "$installer" /S
expect "The upgrade left an older file." diff -r --exclude=Uninstall.exe "$unpacked" "$folder"
echo mine >"$folder/mine.txt"

# The uninstaller that one calls goes on as a copy of itself. The entry in the list is the last that it takes away.
is_unlisted () { [[ $(exit_code is_registered "$key") == 1 ]]; }
wine_run "$folder/Uninstall.exe" /S
wait_until "the removal from the list of installed programs" is_unlisted
expect "The uninstaller left something, or took what is not its own." test "$(ls "$folder")" == mine.txt
expect "The Start menu entry is still there." test ! -e "$menu"
expect "The user's content is gone." test "$(cat "$drive/Klangora/amp.sa")" == content
expect "The remembered login is gone." test "$(cat "$drive/Klangora/rememberme.txt")" == login
expect "The product's registry entry is gone." is_registered "$product"

rm "$folder/mine.txt"
expect "The second installation did not end with 0." wine_run "$installer" /S
wine_run "$folder/Uninstall.exe" /S
is_gone_altogether () { [[ ! -e $folder ]]; }
wait_until "the removal of the folder" is_gone_altogether
echo "The Windows packages install, run, refuse, upgrade and remove as they should."
