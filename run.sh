#!/usr/bin/env bash
# Builds the program, starts a store for it on this machine, and lets you try it. An account is ready, and the
# content is made up. Your own settings and installations are not touched.
#
#   ./run.sh             the program is yours; the store ends with it
#   ./run.sh --tour      all by itself on a virtual display: pictures of every step in build/tour/, and a
#                        check of everything that it did. This is also what happens where there is no display.
#   ./run.sh --windows   either, with the Windows program under Wine (pictures in build/tour-windows/)
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")"

usage ()
{
  sed -n '2,/^set/{/^set/d;s/^# \{0,1\}//;p}' "${BASH_SOURCE[0]}"
}

platform=linux
tour=
groups=(build sandbox test)

for argument in "$@"; do
  case $argument in
    --tour) tour=yes ;;
    --windows) platform=windows; groups+=(windows wine) ;;
    -h | --help) usage; exit 0 ;;
    *) usage >&2; exit 2 ;;
  esac
done

scripts/packages.sh "${groups[@]}"

if [[ $tour ]] || ! xprop -root &>/dev/null; then
  exec scripts/tour.sh "$platform"
fi

# shellcheck source=scripts/trial.sh
source scripts/trial.sh
trap end_trial EXIT

account=you@example.com
password=klangora
set_up_trial "$platform" --bytes-per-second 3000000 --account "$account" "$password"

cat <<TEXT

This account can log on, and you can create others:
  email address   $account
  password        $password
The store's address is $store_address. Content is installed below $installation.
TEXT

start_client "$platform"
wait "$client_pid"
