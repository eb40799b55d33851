#!/usr/bin/env bash
# Makes the pictures of the window, of the Windows programs and of desktops from data/icons/ventlock.svg. Run it after a
# change of the drawing.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/packages.sh

need_packages librsvg2-bin imagemagick icoutils
for size in 16 32 48; do
    name=ventlock$size
    rsvg-convert --width "$size" --height "$size" data/icons/ventlock.svg |
        convert png:- -colors 24 -channel A -threshold 50% "xpm:-" |
        sed "s/^static char \*[^[]*\[\]/static const char* const ${name}_xpm[]/" >"src/ui/icons/$name.xpm"
done

# The icon of the Windows programs; the largest picture stands in it as it is, the smaller ones as bitmaps.
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
for size in 16 24 32 48 64 256; do
    rsvg-convert --width "$size" --height "$size" data/icons/ventlock.svg >"$work/$size.png"
done
icotool --create --output=packaging/windows/ventlock.ico "$work"/{16,24,32,48,64}.png --raw="$work/256.png"

# What a desktop shows in its menus and lists.
for size in 16 22 24 32 48 64 128 256; do
    folder=data/icons/hicolor/${size}x$size/apps
    mkdir -p "$folder"
    rsvg-convert --width "$size" --height "$size" --output="$folder/ventlock.png" data/icons/ventlock.svg
done
