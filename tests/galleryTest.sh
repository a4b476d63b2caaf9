#!/usr/bin/env bash
# Usage: galleryTest.sh GALLERY FOUND_FOLDER
# Everything that the program paints, at two scales, with bars for letters: pixel by pixel as in tests/expected/. What
# differs is left in FOUND_FOLDER, with the difference in red.
set -euo pipefail

gallery=$1 found=$2
expected=$(dirname "${BASH_SOURCE[0]}")/expected
work=$(mktemp -d)
trap 'rm -r "$work"' EXIT
mkdir "$work"/{interface,painted}
xdotool mousemove 0 0    # over a button it would light that
"$gallery" "$work/interface" "$work/painted" --plain --scale 100 --scale 150

differing=0
for picture in "$expected"/*.png; do
  name=$(basename "$picture" .png)
  rm -f "$found/$name"{,-difference}.png
  pixels=$(compare -metric AE -fuzz 1% "$picture" "$work/painted/$name.png" "$work/difference.png" 2>&1) || {
    area=$(compare -fuzz 1% -compose src -highlight-color white -lowlight-color black \
      "$picture" "$work/painted/$name.png" png:- 2>/dev/null | convert - -trim -format '%wx%h%O' info: || true)
    echo "$name: $pixels pixels differ, in $area"
    mkdir -p "$found"
    cp "$work/painted/$name.png" "$found"
    mv "$work/difference.png" "$found/$name-difference.png"
    differing=$((differing + 1))
  }
done

((differing == 0)) || { echo "$differing pictures differ: look at them in $found"; exit 1; }
[[ $(ls "$work/painted") == "$(cd "$expected" && ls -- *.png)" ]] || { echo "Not the same pictures are painted."; exit 1; }
