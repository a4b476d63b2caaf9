#!/usr/bin/env bash
# Usage: tour.sh PLATFORM
# Everything that the program is for, on a virtual display: a person creates an account, logs on, downloads,
# quits and comes back, with a picture of every step. Then a look at what that left on disk and at what the
# store was asked. PLATFORM is linux or windows.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

# shellcheck source=scripts/visit.sh
source scripts/visit.sh

platform=$1
pictures=$PWD/build/tour
[[ $platform == linux ]] || pictures+=-$platform
expected=$PWD/build/tour-expected

mail=tour@example.com
password='p&w+1%=2 "3"'
big_item="Concert Grand Cabinets"

# Where things are in the program's window
lower_half=700x272+0+276    # no caret blinks there in a login that is filled in
log_on=(350 451)
login_address=(192 198)
remember_me=(80 416)
authenticate=(187 288)
download=(350 146)
quit=(350 536)

# ... and in a message box, from its right bottom corner
last_button=(-64 -34)
last_button_but_one=(-162 -34)

window_is_ready ()
{
  has_focus "$main" && is_still "$main" "$lower_half"
}

# ---- the play

# By Tab from field to field; the page opens with the keyboard in the first one.
fill_in_the_new_account ()
{
  local text
  press Tab
  press Tab

  for text in "$mail" "$mail" "$password" "$password"; do
    press Tab
    type_text "$text"
  done
}

create_an_account ()
{
  start
  picture welcome
  turn_page click_in "$main" "${log_on[@]}"
  picture account

  enables "$create_account_button" fill_in_the_new_account
  picture account-filled-in

  press Tab
  press Return
  read_box account-created
  turn_page answer_box click_in "$box" "${last_button[@]}"
  picture logged-on-at-once

  press alt+F4
  read_box closing-asks
  answer_box click_in "$box" "${last_button_but_one[@]}"
  end
}

fill_in_the_login ()
{
  click_in "$main" "${login_address[@]}"
  type_text "$mail"
  press Tab
  type_text "$password"
}

log_on_with_remember_me ()
{
  start
  turn_page click_in "$main" "${log_on[@]}"
  enables "$authenticate_button" fill_in_the_login
  click_in "$main" "${remember_me[@]}"
  ok_boxes remember-me-warns
  wait_until "the window is ready" window_is_ready
  picture login-filled-in
  turn_page click_in "$main" "${authenticate[@]}"
  picture downloads
}

store_has_sent ()
{
  grep -q " sent $1\$" "$store_log"
}

watch_the_percentage ()
{
  local number before
  wait_until "the store sends the big item" store_has_sent "$big_item"

  for number in 1 2 3; do
    before=$(look_at "$main" "$status_line")
    wait_until "the status line moves on" looks_different "$before" "$main" "$status_line"
    picture "percentage-$number"

    # "Download!" is disabled, and the keyboard must be alive nevertheless.
    if ((number == 1)); then
      press Escape
      read_box escape-during-the-run
      answer_box press Escape
    fi
  done

  # The first box of the summary opens at once when the item is complete.
  check "the percentage is seen to move" no_box_is_open
}

download_everything ()
{
  click_in "$main" "${download[@]}"
  ok_boxes size-mismatch
  check "nothing is kept of the item that was cut short" test ! -e "$installation/effects/spring tank.sa"
  watch_the_percentage
  ok_boxes failed downloaded out-of-date up-to-date-count
}

# The run has given the keyboard back to "Download!".
download_what_failed ()
{
  wait_until "the window is ready" window_is_ready
  press Return
  ok_boxes again-downloaded again-out-of-date again-up-to-date-count
}

find_all_current ()
{
  click_in "$main" "${download[@]}"
  ok_boxes all-up-to-date still-out-of-date still-up-to-date-count
}

change_ones_mind_and_quit ()
{
  wait_until "the window is ready" window_is_ready
  local before
  before=$(look_at "$main" "$sign")

  click_in "$main" "${quit[@]}"
  read_box quit-asks
  answer_box click_in "$box" "${last_button[@]}"
  wait_until "the window is ready" window_is_ready
  picture went-back
  check "\"Go back\" leaves the page that was shown" looks_like "$before" "$main" "$sign"

  click_in "$main" "${quit[@]}"
  read_box quit-asks-again
  answer_box click_in "$box" "${last_button_but_one[@]}"
  end
}

# From the keyboard alone.
find_the_login_remembered ()
{
  start
  turn_page press Return
  picture login-remembered
  press Return
  turn_page press Return
  picture logged-on-again

  # "Go back" leaves the keyboard where it was, on "Download!".
  press Escape
  read_box escape-asks
  answer_box press Escape
  wait_until "the window is ready" window_is_ready
  press Return
  read_box by-keyboard-all-up-to-date
  answer_box press Return
  read_box by-keyboard-out-of-date
  answer_box press Return
  read_box by-keyboard-up-to-date-count
  answer_box press Return

  wait_until "the window is ready" window_is_ready
  press Escape
  read_box escape-asks-again
  answer_box press Return
  end
}

# ---- the checks

requests_are ()
{
  diff "$store_log" - >&2 <<REQUESTS
POST /api/register.cfm created $mail
POST /api/auth.cfm logged on $mail
POST /api/auth.cfm logged on $mail
POST /api/bin.cfm listed 7 items for $mail
GET /items/0 sent Amber Twin
GET /items/1 sent Velvet Drive
GET /items/5 cut short Spring Tank
GET /items/6 sent $big_item
POST /api/bin.cfm listed 7 items for $mail
GET /items/5 sent Spring Tank
POST /api/bin.cfm listed 7 items for $mail
POST /api/auth.cfm logged on $mail
POST /api/bin.cfm listed 7 items for $mail
REQUESTS
}

# Two lines of printable text, neither of which is the address or the password as it is.
login_is_scrambled ()
{
  local file=$installation/rememberme.txt line=$'^[0-9]+\.[A-Za-z0-9.+]+\r$'
  [[ $(grep -cE "$line" "$file") == 2 && $(wc -l <"$file") == 2 ]] &&
    ! grep -qF -e "$mail" -e "$password" "$file"
}

owner_alone_may_read ()
{
  [[ $(stat --format %a "$1") == 600 ]]
}

same_files ()
{
  diff <(cd "$1" && find . | sort) <(cd "$2" && find . ! -name rememberme.txt | sort) >&2
}

# What the disk must hold in the end: what was there before, and what the store has on offer.
note_what_is_expected ()
{
  rm -rf "$expected"
  mkdir "$expected"
  cp -r "$installation" "$expected/installation"
  cp -r "$settings" "$expected/settings"
  build/linux/bin/sandboxStore --export "$expected/installation"
}

check_the_disk ()
{
  local file

  while IFS= read -r file; do
    check "$file" cmp "$expected/installation/$file" "$installation/$file"
  done < <(cd "$expected/installation" && find . -type f -printf '%P\n' | sort)

  check "no other file is there" same_files "$expected/installation" "$installation"
  check "the login is remembered, scrambled" login_is_scrambled

  if [[ $platform == linux ]]; then
    check "its owner alone may read it" owner_alone_may_read "$installation/rememberme.txt"
    check "the settings are as they were" diff -r "$expected/settings" "$settings"
  fi
}

# ---- all of it

trap 'end_trial; stop_display' EXIT
start_display
set_up_trial "$platform" --bytes-per-second 3000000
new_album
note_what_is_expected
SECONDS=0

create_an_account
log_on_with_remember_me
download_everything
download_what_failed
find_all_current
change_ones_mind_and_quit
find_the_login_remembered

check_the_disk
check "the program ended three times, without an error" test "${exit_codes[*]}" = "0 0 0"
check "the store was asked for this, and for nothing else" requests_are

report "The tour of the $platform program"
