#!/usr/bin/env bash
# Renders the drawings in svg/ to the files in images/ that are committed. Look at them before you commit.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")"
../scripts/packages.sh artwork
mkdir -p images

# render DRAWING WIDTH PICTURE
render ()
{
  rsvg-convert --width "$2" "svg/$1.svg" | convert png:- -strip "PNG32:images/$3.png"
}

for banner in banner-welcome banner-account; do
  render "$banner" 700 "$banner"
  for percent in 125 150 200 300; do
    render "$banner" "$((7 * percent))" "$banner-$percent"
  done
done

for size in 16 32; do
  render icon-small "$size" "icon-$size"
done
for size in 48 64 128 256; do
  render icon "$size" "icon-$size"
done
convert images/icon-{16,32,48,64,128,256}.png images/icon.ico

rsvg-convert svg/generic_background.svg |
  convert png:- -strip -sampling-factor 4:2:0 -quality 80 images/generic_background.jpg
