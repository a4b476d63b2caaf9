#!/usr/bin/env bash
# Renders the drawings in svg/ to the files in images/ that are committed. Needs Debian's packages librsvg2-bin,
# imagemagick and fonts-dejavu-core (the banners' letters); look at the result before you commit it.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")"
mkdir -p images

for banner in banner-welcome banner-account; do
  rsvg-convert --width 700 --height 48 "svg/$banner.svg" | convert png:- -depth 8 -strip "PNG32:images/$banner.png"
done

for size in 16 32 48 64 128 256; do
  rsvg-convert --width "$size" --height "$size" svg/icon.svg | convert png:- -depth 8 -strip "PNG32:images/icon-$size.png"
done

convert images/icon-{16,32,48,64,128,256}.png images/icon.ico
rsvg-convert svg/generic_background.svg | convert png:- -strip -quality 86 images/generic_background.jpg
