#!/usr/bin/env bash
# Usage: keyboard-session.sh PLATFORM
# Whole sessions from the keyboard alone, on a virtual display: a person who has no mouse creates an account,
# downloads, meets an empty catalogue and a slow store, and tries Escape at every moment of it. PLATFORM is linux or
# windows.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

# shellcheck source=scripts/visit.sh
source scripts/visit.sh

platform=$1
pictures=$PWD/build/keyboard-session
[[ $platform == linux ]] || pictures+=-$platform

mail=keys@example.com
password="all by keys"
big_item="Concert Grand Cabinets"
question=         # what the text in the box with the quit question looks like
asked=            # the last one of those
text=290x80+60+15 # in a box

# ---- boxes

# The one with the keyboard: while the question is open, what a run has to say opens above it.
box_is_in_front ()
{
  local window
  window=$(xdotool getactivewindow 2>/dev/null) &&
    [[ $window != "$main" && $window != "$box" && $window != "$asked" ]] && box=$window
}

the_question_is_open ()
{
  local window
  window=$(xdotool getactivewindow 2>/dev/null) && looks_like "$question" "$window" "$text" && box=$window asked=$window
}

# asks KEY: the key makes the program ask whether to quit
asks ()
{
  press "$1"
  wait_until "$1 asks whether to quit" the_question_is_open
}

# says NAME KEY: waits for a box, takes its picture and answers it with this key
says ()
{
  wait_until "a message box opens: $1" box_is_in_front
  wait_until "the message box is painted" is_still "$box"
  picture "$1"
  answer_box press "$2"
}

goes_back ()
{
  answer_box press "${1:-Escape}"
  wait_until "the window has the keyboard again" has_focus "$main"
}

escape_and_back ()
{
  asks Escape
  goes_back
}

quit ()
{
  asks Escape
  answer_box press Return
  end
}

# ---- pages

# Escape while the first page fades in. This is also where the question is seen first.
open_the_program ()
{
  main=
  box=
  start_client "$platform"
  wait_until "the program's window opens" window_is_open
  wait_until "the window has the keyboard" has_focus "$main"
  press Escape
  wait_until "Escape asks whether to quit" box_is_in_front
  wait_until "the question is painted" is_still "$box"
  picture question
  question=$(look_at "$box" "$text")
  goes_back
  wait_until "the first page has faded in" is_still "$main" "$page"
}

# Escape while the page fades in, too.
go_to_the_account_page ()
{
  press Return
  escape_and_back
  wait_until "the page has faded in" is_still "$main" "$sign"
}

# log_on_and_press OUTCOME KEYS...: Return logs on, and the keys follow while the program waits for the reply of a
# slow store
log_on_and_press ()
{
  local outcome=$1
  shift
  press Return
  wait_until "the store has the request" last_request_was "$outcome"
  xdotool key "$@"
}

last_request_was ()
{
  [[ $(tail -n 1 "$store_log") == *"$1" ]]
}

# ---- the sessions

fill_in_the_new_account ()
{
  local input
  press Tab
  press Tab

  for input in "$mail" "$mail" "$password" "$password"; do
    press Tab
    type_text "${input%?}"
    escape_and_back
    type_text "${input: -1}"    # where it was left
  done
}

# Of seven items one breaks off and one is slow.
first_session ()
{
  open_the_program
  press Tab
  asks space
  press Tab
  goes_back space    # on "Go back"
  press Tab
  go_to_the_account_page

  enables "$create_account_button" fill_in_the_new_account
  press Tab
  press space
  says account-created space
  wait_until "the page has faded in" is_still "$main" "$sign"
  picture downloads
  escape_and_back

  press Return
  says size-mismatch Return
  wait_until "the store sends the big item" last_request_was "sent $big_item"
  escape_and_back
  picture slow-item
  asks Return        # "Download!" is disabled; the bar has the keyboard in its place
  goes_back g
  press Tab
  asks Escape        # and stays open until the run has ended
  says failed Escape
  says downloaded Return
  says out-of-date space
  says up-to-date-count Escape
  wait_until "the question is in front again" the_question_is_open
  goes_back

  wait_until "the window is still" is_still "$main" "$page"
  press Return       # on "Download!", which has the keyboard again
  says again-downloaded Return
  says again-out-of-date Return
  says again-up-to-date-count Return
  wait_until "the window has the keyboard again" has_focus "$main"
  quit
}

# Twenty items, one right after the other.
second_session ()
{
  open_the_program
  go_to_the_account_page
  type_text "$mail"
  press Return
  type_text "$password"
  turn_page press Return
  press Return
  asks Escape
  says twenty-downloaded Escape
  wait_until "the question is in front again" the_question_is_open
  answer_box press Return
  end
}

# A store that takes its time and has nothing to offer. What is pressed meanwhile is for nobody.
third_session ()
{
  local waiting
  open_the_program
  go_to_the_account_page
  type_text "$mail"
  press Return
  type_text "${password}x"
  log_on_and_press "refused $mail" Return Escape Return space Tab
  says wrong-password Return
  wait_until "the window has the keyboard again" has_focus "$main"
  press BackSpace
  turn_page log_on_and_press "logged on $mail" Escape Return
  picture nothing-asked-for

  press Return
  wait_until "the store has listed nothing" last_request_was "listed 0 items for $mail"
  xdotool key Escape Return space
  waiting=$(look_at "$main" "$page")
  wait_until "the program has the reply" looks_different "$waiting" "$main" "$page"
  wait_until "the window is still" is_still "$main" "$page"
  picture nothing-on-offer
  escape_and_back
  quit
}

requests_are ()
{
  diff "$store_log" - >&2 <<REQUESTS
POST /api/register.cfm created $mail
POST /api/auth.cfm logged on $mail
POST /api/bin.cfm listed 7 items for $mail
GET /items/0 sent Amber Twin
GET /items/1 sent Velvet Drive
GET /items/5 cut short Spring Tank
GET /items/6 sent $big_item
POST /api/bin.cfm listed 7 items for $mail
GET /items/5 sent Spring Tank
POST /api/auth.cfm logged on $mail
POST /api/bin.cfm listed 20 items for $mail
$(for i in {1..20}; do echo "GET /items/$((i - 1)) sent Impulse Response $i"; done)
POST /api/auth.cfm refused $mail
POST /api/auth.cfm logged on $mail
POST /api/bin.cfm listed 0 items for $mail
REQUESTS
}

trap 'end_trial; stop_display' EXIT
start_display
set_up_trial "$platform" --bytes-per-second 6000000
new_album
SECONDS=0

first_session
another_store --account "$mail" "$password" --items 20 --bytes-per-second 600000
second_session
another_store --account "$mail" "$password" --items 0 --delay 1500
third_session

check "the program ended three times, without an error" test "${exit_codes[*]}" = "0 0 0"
check "no key asked the store for anything else" requests_are
report "The keyboard sessions with the $platform program"
