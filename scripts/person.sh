# shellcheck shell=bash
# To be sourced: a person at the display, who looks, points, clicks and types. Whatever is waited for is a
# condition that comes true within $patience seconds; otherwise the caller's function "give_up SENTENCE" is
# called, which is to end the script.

patience=60

# wait_until SENTENCE COMMAND ARGS...
wait_until ()
{
  local sentence=$1 deadline=$((SECONDS + patience))
  shift

  until "$@"; do
    if ((SECONDS >= deadline)); then
      give_up "Waited in vain for $patience s: $sentence"
    fi
    sleep 0.03
  done
}

# ---- looking

# Prints the visible window with exactly this title. A window that vanishes while it is looked for makes the
# search fail, which is the same as not found yet.
window_titled ()
{
  xdotool search --onlyvisible --name "^$1\$" 2>/dev/null | tail -n 1 | grep .
}

is_gone ()
{
  [[ $(xwininfo -id "$1" 2>/dev/null) != *IsViewable* ]]
}

has_focus ()
{
  [[ $(xdotool getactivewindow 2>/dev/null) == "$1" ]]
}

# look_at WINDOW [AREA]: prints a fingerprint of the picture; AREA as in 100x20+30+40. A window that has just closed
# makes "import" wait for a click.
look_at ()
{
  timeout 5 import -silent -window "$1" ${2:+-crop "$2"} rgb:- 2>/dev/null | sha256sum
}

looks_like ()
{
  [[ $(look_at "$2" "${3:-}") == "$1" ]]
}

looks_different ()
{
  ! looks_like "$@"
}

# Half a second in which the picture stays as it is: nothing fades in any more.
is_still ()
{
  local picture
  picture=$(look_at "$@")

  for _ in 1 2 3 4 5; do
    sleep 0.08
    looks_like "$picture" "$@" || return 1
  done
}

# take_picture FILE: of the whole screen, cut to what is on it
take_picture ()
{
  import -silent -window root miff:- |
    convert miff:- -bordercolor black -border 1 -trim +repage -border 20 "$1"
}

# ---- hands

# click_in WINDOW X Y: pixels from its left top corner; negative ones from its right bottom corner
click_in ()
{
  local window=$1 x=$2 y=$3 WIDTH=0 HEIGHT=0
  eval "$(xdotool getwindowgeometry --shell "$window" | grep -E '^(WIDTH|HEIGHT)=')"
  ((x >= 0)) || ((x += WIDTH))
  ((y >= 0)) || ((y += HEIGHT))
  xdotool mousemove --window "$window" "$x" "$y" click 1
}

type_text ()
{
  xdotool type --delay 15 "$1"
}

press ()
{
  xdotool key "$1"
}
