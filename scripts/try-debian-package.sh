#!/usr/bin/env bash
# Usage: try-debian-package.sh PACKAGE
# Installs the package in a minimal Debian of its own, made from wherever this machine has its packages, where
# nothing is but what it depends on; starts it as its manual page says, quits it, removes it. Wants a display.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

# shellcheck source=scripts/person.sh
source scripts/person.sh

give_up ()
{
  import -silent -window root build/try-debian.png || true
  echo "$1 (the screen then: build/try-debian.png)" >&2
  exit 1
}

if [[ $1 != --inside ]]; then
  package=$(realpath "$1")
  # shellcheck source=/dev/null
  suite=$(. /etc/os-release && echo "$VERSION_CODENAME")
  sources=$(mktemp)
  trap 'rm "$sources"' EXIT
  apt-get indextargets --no-release-info --format "deb \$(REPO_URI) $suite main" \
    'Identifier: Packages' "Release: $suite" 'Component: main' | sort -u >"$sources"
  # Without a trace of it but the lines below: the root is gone afterwards.
  mmdebstrap --quiet --variant=apt --format=null \
    --customize-hook="copy-in '$package' /tmp" \
    --customize-hook="'$PWD/scripts/try-debian-package.sh' --inside \"\$1\"" \
    "$suite" - "$sources"
  exit
fi

root=$2
inside ()
{
  chroot "$root" env --unset=XDG_CONFIG_HOME PATH=/usr/sbin:/usr/bin:/sbin:/bin HOME=/home LC_ALL=C.UTF-8 \
    DEBIAN_FRONTEND=noninteractive "$@"
}

inside sh -c 'apt-get -qq install --yes --no-install-recommends /tmp/dorvik-rigmart_*.deb' >/dev/null
files=$(inside dpkg --listfiles dorvik-rigmart)

# What the manual page shows for /opt/klangora, blanks and all.
mkdir -p "$root/opt/klangora/gui/klangora 4" "$root/home/.config/Dorvik Electronics"
cp assets/images/generic_background.jpg "$root/opt/klangora/gui/klangora 4"
MANWIDTH=120 man --local-file "$root/usr/share/man/man1/dorvik-rigmart.1.gz" |
  sed -n '/<PROPERTIES>/,/<\/PROPERTIES>/p' >"$root/home/.config/Dorvik Electronics/registry.settings"

inside dorvik-rigmart &
program=$!
has_ended () { ! kill -0 "$program" 2>/dev/null; }
has_any_window () { window=$(window_titled "Dorvik Rigmart and Licenses") || window_titled "Klangora 4" || has_ended; }
wait_until "the program's window" has_any_window >/dev/null
[[ $window ]] || give_up "It did not start with its window, but with a box."
wait_until "its first page" is_still "$window"
press Escape
wait_until "the question" window_titled "Klangora 4" >/dev/null
wait_until "the question, painted" is_still "$(window_titled "Klangora 4")"
press Return
wait_until "the end" has_ended
wait "$program" || give_up "It did not end with 0."

inside dpkg --purge dorvik-rigmart >/dev/null
while read -r file; do
  [[ -d $root$file || ! -e $root$file ]] || give_up "Removed, it left $file."
done <<<"$files"
[[ -e "$root/opt/klangora/gui/klangora 4/generic_background.jpg" ]] || give_up "Content was removed with it."
echo "The Debian package installs, runs and is removed as it should."
