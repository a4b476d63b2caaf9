# shellcheck shell=bash disable=SC2034,SC2154
# To be sourced in the checkout's folder: the program's window and its message boxes, as a person meets them, with an
# album of what was seen and a list of what was checked. The caller sets $platform and the folder $pictures.

# shellcheck source=scripts/display.sh
source scripts/display.sh
# shellcheck source=scripts/trial.sh
source scripts/trial.sh
# shellcheck source=scripts/person.sh
source scripts/person.sh

# Where things are in the program's window. No page shows anything that blinks or lights up in its sign.
sign=700x36+0+95
page=700x500+0+24
authenticate_button=150x24+112+276
create_account_button=150x24+432+404
status_line=520x24+90+252

main=
box=
picture_count=0
exit_codes=()
results=()

give_up ()
{
  take_picture "$pictures/failed.png"
  echo "$1 (see $pictures/failed.png)" >&2
  exit 1
}

new_album ()
{
  rm -rf "$pictures"
  mkdir -p "$pictures"
}

picture ()
{
  picture_count=$((picture_count + 1))
  take_picture "$(printf '%s/%02d-%s.png' "$pictures" "$picture_count" "$1")"
}

# ---- the window

window_is_open ()
{
  kill -0 "$client_pid" 2>/dev/null || give_up "The program ended before its window opened."
  main=$(window_titled "Dorvik Rigmart and Licenses")
}

# enables BUTTON ACTION...: does what makes the button in this area one that can be pressed, and no sooner
enables ()
{
  local button=$1 before
  shift
  before=$(look_at "$main" "$button")
  "$@"
  wait_until "the button can be pressed" looks_different "$before" "$main" "$button"
}

# turn_page ACTION...: does what leads to another page, and waits until that one is all there
turn_page ()
{
  local before
  before=$(look_at "$main" "$sign")
  "$@"
  wait_until "another page is shown" looks_different "$before" "$main" "$sign"
  wait_until "the page has faded in" is_still "$main" "$sign"
}

start ()
{
  main=
  start_client "$platform"
  wait_until "the program's window opens" window_is_open
  wait_until "the window has the keyboard" has_focus "$main"
  wait_until "the first page has faded in" is_still "$main" "$page"
}

program_has_ended ()
{
  ! kill -0 "$client_pid" 2>/dev/null
}

end ()
{
  local code=0
  wait_until "the program ends" program_has_ended
  wait "$client_pid" || code=$?
  client_pid=
  exit_codes+=("$code")
}

# ---- message boxes

another_box_is_open ()
{
  local window
  window=$(window_titled "$product") && [[ $window != "$box" ]] && box=$window
}

no_box_is_open ()
{
  ! window_titled "$product" >/dev/null
}

# read_box NAME: waits for a box that was not seen before, and takes its picture
read_box ()
{
  wait_until "a message box opens: $1" another_box_is_open
  wait_until "the message box has the keyboard" has_focus "$box"
  wait_until "the message box is painted" is_still "$box"
  picture "$1"
}

# answer_box ACTION...: does what closes the box
answer_box ()
{
  "$@"
  wait_until "the message box closes" is_gone "$box"
}

ok_boxes ()
{
  local name
  for name in "$@"; do
    read_box "$name"
    answer_box click_in "$box" "${last_button[@]}"
  done
}

# ---- the results

# check SENTENCE COMMAND ARGS...
check ()
{
  local sentence=$1 verdict="  ok    "
  shift
  "$@" || verdict="  WRONG "
  results+=("$verdict $sentence")
}

# report TITLE: prints what was checked, and fails when something was not as it should be
report ()
{
  printf '\n%s: %d pictures in %s, %d s\n' "$1" "$picture_count" "${pictures#"$PWD/"}" "$SECONDS"
  printf '%s\n' "${results[@]}"
  [[ ${results[*]} != *WRONG* ]]
}
