#!/usr/bin/env bash
# Usage: pictures.sh PLATFORM [SCREEN/MANAGER/SCALE...]
# Every page and message box of the program for looking at: on screens from 800x600 to 3840x2160, at 100 to 200
# percent, without a window manager, with one that stacks and with one that tiles, or on those that are named, as in
# 1366x768/i3/125. Makes a folder of pictures for each below build/pictures/, and a contact sheet. PLATFORM is linux or
# windows; under Wine the scale is 100.
# shellcheck disable=SC2034
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

# shellcheck source=scripts/visit.sh
source scripts/visit.sh

platform=$1
shift
scripts/packages.sh build sandbox test pictures
album=$PWD/build/pictures
mail=pictures@example.com
password="one by one"

# Without a window manager no window is the active one.
has_focus ()
{
  [[ $(xdotool getwindowfocus 2>/dev/null) == "$1" ]]
}

# A fade takes half a second, and a caret that blinks is never still.
shoot ()
{
  sleep 0.8
  import -silent -window root "$pictures/$1.png"
}

# look NAME KEY: at a message box that opens, which the key then closes
look ()
{
  wait_until "a message box opens: $1" another_box_is_open
  wait_until "the message box has the keyboard" has_focus "$box"
  shoot "$1"
  answer_box press "$2"
}

window_has_opened ()
{
  main=$(window_titled "Dorvik Rigmart and Licenses")
}

look_at_everything ()
{
  local hidden=$settings.away
  main=
  box=

  # Without an installation a box comes before the window.
  if [[ $platform == linux ]]; then
    mv "$settings" "$hidden"
    start_client "$platform"
    look no-installation Return
    wait_until "the window opens" window_has_opened
    kill "$client_pid"
    wait "$client_pid" || true
    mv "$hidden" "$settings"
    box=
  fi

  start_client "$platform"
  wait_until "the window opens" window_has_opened
  wait_until "the window has the keyboard" has_focus "$main"
  shoot welcome
  press Escape
  look question Escape
  wait_until "the window has the keyboard" has_focus "$main"
  press Return
  shoot account
  type_text "$mail"
  press Return
  type_text "${password}x"
  press Return
  look refused Return
  wait_until "the window has the keyboard" has_focus "$main"
  shoot account-filled-in
  press BackSpace
  press Return
  shoot downloads
  press Return
  shoot running
  look long-list Return
  wait_until "the window has the keyboard" has_focus "$main"
  shoot summary
  press Escape
  look question-again Return
  wait "$client_pid" || true
}

places=("$@")
((${#places[@]} > 0)) || places=({800x600,1366x768,1920x1080,3840x2160}/{none,openbox,i3}/{100,125,150,200})

trap 'end_trial; stop_display' EXIT
start_display
set_up_trial "$platform" --account "$mail" "$password" --items 100 --bytes-per-second 1500000
stop_display

for place in "${places[@]}"; do
  IFS=/ read -r screen_size window_manager scale <<<"$place"
  pictures=$album/$platform-${place//\//-}
  new_album
  rm -rf "$installation/responses"
  start_display
  export GDK_SCALE
  GDK_SCALE=$((scale / 100)).$((scale % 100))
  look_at_everything
  unset GDK_SCALE
  stop_display
  montage -label '%t' "$pictures"/*.png -tile 4x -geometry '640x>+6+6' -background '#404040' -fill white "$pictures.png"
  echo "$pictures.png"
done
