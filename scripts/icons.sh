#!/usr/bin/env bash
# Makes the pictures that the window is built with from data/icons/ventlock.svg. Run it after a change of the drawing.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/packages.sh

need_packages librsvg2-bin imagemagick
for size in 16 32 48; do
    name=ventlock$size
    rsvg-convert --width "$size" --height "$size" data/icons/ventlock.svg |
        convert png:- -colors 24 -channel A -threshold 50% "xpm:-" |
        sed "s/^static char \*[^[]*\[\]/static const char* const ${name}_xpm[]/" >"src/ui/icons/$name.xpm"
done
