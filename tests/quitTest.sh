#!/usr/bin/env bash
# Usage: quitTest.sh COMMAND ARGS...
# COMMAND starts the program. However a person quits it, the process ends by itself with exit code 0. On
# Windows no other copy of this user's may run meanwhile.
set -euo pipefail

# shellcheck source=scripts/person.sh
source "$(dirname "${BASH_SOURCE[0]}")/../scripts/person.sh"

settings=$(mktemp -d)
export XDG_CONFIG_HOME=$settings XDG_RUNTIME_DIR=$settings    # where the lock lies, on Linux
program=
trap '[[ -z $program ]] || kill -KILL "$program" 2>/dev/null || true; rm -r "$settings"' EXIT

give_up () { echo "$way: $1" >&2; exit 1; }
is_titled () { [[ $(xdotool getactivewindow getwindowname 2>/dev/null) == "$1" ]]; }
box_is_open () { is_titled "Klangora 4" && box=$(xdotool getactivewindow); }
window_is_open () { is_titled "Dorvik Rigmart and Licenses" && window=$(xdotool getactivewindow); }
first_is_open () { box_is_open || window_is_open; }
accept_box () { wait_until "the box is painted" is_still "$box" && press Return; }
has_icon () { [[ $(xprop -id "$1" _NET_WM_ICON) == *"Icon (16 x 16)"* ]] || give_up "a window has no icon"; }
is_of_window () { [[ $(xprop -id "$box" WM_TRANSIENT_FOR) == *"$(printf '%#x' "$window")" ]] || give_up "a box is on its own"; }
has_ended () { ! kill -0 "$program" 2>/dev/null; }

click_quit () { click_in "$window" 350 -12; }
tab_to_quit () { press Tab; press space; }
press_escape () { press Escape; }
close_window () { press alt+F4; }

for way in click_quit tab_to_quit press_escape close_window; do
  "$@" &
  program=$!

  # Where there is no installation folder the program starts with a message box.
  wait_until "a box or the window" first_is_open
  ! box_is_open || accept_box
  wait_until "the window" window_is_open
  wait_until "the first page" is_still "$window"
  has_icon "$window"
  "$way"
  wait_until "the question" box_is_open
  has_icon "$box"
  is_of_window
  accept_box
  wait_until "the end" has_ended
  wait "$program" || give_up "exit code $?"
  program=
done
