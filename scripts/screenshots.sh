#!/usr/bin/env bash
# screenshots.sh [--windows]
# Takes the pictures of the window that README and the guides show, on a display of its own, into docs/images. The window
# shows the sample entry on an embedded device database. --windows: the tabs of the Windows program under Wine.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/packages.sh

case ${1:-} in
    "" | --windows)
        need_packages "${build_packages[@]}" "${display_packages[@]}"
        preset=release
        if [ "${1:-}" = --windows ]; then
            need_packages "${windows_packages[@]}" "${windows_test_packages[@]}"
            packaging/windows/libraries.sh x86_64 >/dev/null
            preset=windows
        fi
        cmake --preset $preset >/dev/null
        cmake --build --preset $preset --target ventlock ventlock-cli >/dev/null
        exec tests/support/display/with_display.sh "$0" --on-display "$@"
        ;;
    --on-display) ;;
    *) echo "usage: screenshots.sh [--windows]" >&2 && exit 2 ;;
esac

images=docs/images
prefix=
program=(build/release/bin/ventlock)
cli=(build/release/bin/ventlock-cli)
world=/tmp/ventlock # seen in the pictures
files=$world             # where both target files are
shown=$world/            # how the window shows that
mkdir "$world"
trap 'kill $(jobs -p) 2>/dev/null || true; rm -rf "$world"' EXIT
export VENTLOCK_REGISTRY=$world/registry.ini ODBCINI=$world/odbc.ini
touch "$ODBCINI"
if [ "${2:-}" = --windows ]; then
    export WINEPREFIX=$world/wine VENTLOCK_TEST_ODBC=$world
    trap 'wineserver --kill 2>/dev/null; kill $(jobs -p) 2>/dev/null || true; rm -rf "$world"' EXIT
    prefix=windows-
    run=$PWD/tests/support/wine/run.sh
    program=("$run" build/windows/bin/ventlock.exe)
    cli=("$run" build/windows/bin/ventlock-cli.exe)
    "$run" wineboot --update
    files=$WINEPREFIX/drive_c/TAV
    shown='C:\TAV\'
    mkdir "$files"
fi
mkdir -p "$images" "$XDG_CONFIG_HOME/gtk-3.0"
printf '[Settings]\ngtk-cursor-blink=false\ngtk-enable-animations=false\n' >"$XDG_CONFIG_HOME/gtk-3.0/settings.ini"
xsetroot -solid '#d8dee6'

fail() {
    echo "screenshots.sh: $1" >&2
    exit 1
}

# set_up <language>: a fresh world with the sample entry as the last one worked on.
set_up() {
    rm -f "$world"/*.*
    touch "$ODBCINI"
    build/release/bin/ventlock-cli database create --file "$world/pyx.db" --dsn PYX >/dev/null
    cp data/sample/Pyx.ini "$files/Pyx.ini"
    local setting
    for setting in "INIPath=${shown}Pyx.ini" "DDInstallPath=${shown}Ddinstal.ini" Language="$1" ManID=26 ManName=Acme \
        "ManDesc=Acme Instruments" ProtID=2 DevID=0A DevName=Flow "DevDesc=Flow transmitter" DevRev=01 DDRev=02 ProtRev=05 \
        DevRevName=R1 "DevRevDesc=First revision" DevCatID=1 DevMinCatID=1 DLLName=Flow.dll TemplateName=Flow.mrg \
        DevHelp=Flow.hlp WindowLeft=3000 WindowTop=1500; do
        "${cli[@]}" settings set "${setting%%=*}" "${setting#*=}" --quiet
    done
}

# window <title>: the visible window with exactly this title, waited for.
window() {
    timeout 20 xdotool search --sync --onlyvisible --name "^$1\$" | head -n 1 || fail "no window named $1"
}

# picture <name> <window>: the window with its frame, once it shows something new and has stopped changing.
picture() {
    local before="" now
    for _ in $(seq 100); do
        import -window "$2" -frame "$images/$1.png"
        now=$(convert "$images/$1.png" rgb:- | md5sum)
        if [ "$now" = "$before" ] && [ "$now" != "$last" ]; then
            last=$now
            echo "$images/$1.png"
            return
        fi
        before=$now
    done
    fail "the picture $1 does not come to rest"
}
last=""

# dialog: the window in front of the main window, waited for.
dialog() {
    local now
    for _ in $(seq 200); do
        now=$(xdotool getactivewindow 2>/dev/null || true)
        [ -n "$now" ] && [ "$now" != "$main" ] && echo "$now" && return
    done
    fail "no window came in front of the main window"
}

start() {
    "${program[@]}" 2>"$world/errors" &
    main=$(window Ventlock)
    xdotool windowactivate --sync "$main"
}

stop() {
    xdotool windowactivate --sync "$main" key alt+F4
    wait $! || fail "the program ended with $?"
}

set_up EN
start
picture ${prefix}general "$main"
for tab in manufacturer device revision; do
    xdotool key ctrl+Next
    picture $prefix$tab "$main"
done
if [ -n "$prefix" ]; then
    stop
    exit
fi
xdotool key alt+h
xdotool key a
picture about "$(dialog)"
xdotool key Escape
xdotool windowactivate --sync "$main" key F1
picture help "$(dialog)"
xdotool key alt+F4
xdotool windowactivate --sync "$main" key alt+t
xdotool key p
preview=$(dialog)
xdotool key ctrl+Next
picture preview "$preview"
xdotool key Escape
stop

"${cli[@]}" settings set DDInstallPath "$world/missing/Ddinstal.ini" --quiet
start
xdotool key alt+f
xdotool key l
picture error "$(dialog)"
xdotool key Return
xdotool key --delay 200 Return
xdotool windowactivate --sync "$main" key alt+t
xdotool key l
picture log "$(dialog)"
xdotool key Escape
stop

set_up DE
start
picture german "$main"
stop
