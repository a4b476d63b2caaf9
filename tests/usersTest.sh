#!/usr/bin/env bash
# Usage: usersTest.sh PROGRAM
# Every user may run one copy of PROGRAM: nobody is locked out, or let in, by what another user has made where the
# lock would be. A lock that cannot be made is told from one that is held. Ends with 77 where the test cannot become
# another user.
set -euo pipefail

# shellcheck source=scripts/person.sh
source "$(dirname "${BASH_SOURCE[0]}")/../scripts/person.sh"

if ((EUID != 0)); then
  echo "Skipped: only root can become another user."
  exit 77
fi

work=$(mktemp -d)
other=65534    # nobody
lock_name="juceAppLock_Dorvik Rigmart"
copies=()
folders=("$work")
trap 'kill "${copies[@]}" 2>/dev/null || true; wait; rm -r "${folders[@]}"' EXIT
chmod 711 "$work"
install -m 755 "$1" "$work/program"
install -d -m 700 "$work/mine" "$work/blocked" "$work/blocked/$lock_name"
install -d -m 700 -o "$other" "$work/theirs"

give_up () { echo "$1" >&2; exit 1; }

# Each becomes a copy of the program, with settings of its own and a runtime folder $1.
copy_of_root () { XDG_CONFIG_HOME=$work XDG_RUNTIME_DIR=$1 exec "$work/program"; }
copy_of_other ()
{
  XDG_CONFIG_HOME=$work XDG_RUNTIME_DIR=$1 \
    exec setpriv --reuid "$other" --regid "$other" --clear-groups "$work/program"
}

# Sets $lock to the lock file that process $1 holds.
holds_lock () { lock=$(lslocks --noheadings --raw --pid "$1" --output PATH | sed 's/\\x20/ /g' | grep "$lock_name"); }

# start COPY ARGS...: starts one that stays, and sets $lock to its lock.
start ()
{
  "$@" &
  copies+=($!)
  wait_until "a copy that stays: $*" holds_lock $!
}

# ends CODE TEXT COPY ARGS...: one that ends by itself, with an exit code and a text that begins so.
ends ()
{
  local code=0 said
  said=$("${@:3}" 2>&1) || code=$?
  said=$(grep -vE '^(JUCE v|Another instance is running)' <<<"$said") || true    # of a debug build's framework
  [[ $code == "$1" && $said == "$2"* && (-n $2 || -z $said) ]] || give_up "${*:3}: exit code $code, and \"$said\""
}

in_folder () { [[ $lock == "$1/$lock_name" ]] || give_up "The lock is $lock, not in $1"; }

start copy_of_root "$work/mine"
in_folder "$work/mine"
ends 0 "" copy_of_root "$work/mine"

# Somebody sits in the first place that the other user's lock would have, with a lock in it that all can see.
squat=/tmp/locks-$other.0
! mkdir -m 777 "$squat" || folders+=("$squat")
touch "$squat/$lock_name"
chmod 666 "$squat/$lock_name"

# A folder that is not theirs is no place for their lock, whatever the variable says.
start copy_of_other "$work/mine"
place=${lock%/*}
folders+=("$place")
[[ $place == /tmp/locks-$other.* && $place != "$squat" ]] || in_folder "a place of their own"
[[ $(stat --format=%u:%a "$place") == "$other:700" ]] || give_up "$place is open to others"
ends 0 "" copy_of_other "$work/mine"

start copy_of_other "$work/theirs"
in_folder "$work/theirs"
ends 1 "Dorvik Rigmart: the lock" copy_of_root "$work/blocked"
