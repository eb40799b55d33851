#!/usr/bin/env bash
# check_window.sh <package>
# On a display: fails, telling every breach, when the desktop cannot tell the window of the package's program from others,
# or when the program does not find its files.
set -euo pipefail
package=$(realpath "$1")
cd "$(dirname "$0")"
. ../expect.sh
work=$(mktemp -d)
trap 'kill $(jobs -p) 2>/dev/null || true; rm -rf "$work"' EXIT
mkdir "$work/tree"
dpkg-deb --extract "$package" "$work/tree"
export PATH=$work/tree/usr/bin:$PATH LANGUAGE=en ODBCINI=$work/odbc.ini VENTLOCK_REGISTRY=$work/registry.ini
touch "$ODBCINI"
ventlock-cli settings set INIPath "$work/Pyx.ini" --quiet
ventlock-cli database create --file "$work/pyx.db" --dsn PYX --quiet

"$(sed -n 's/^Exec=//p' "$work"/tree/usr/share/applications/*.desktop)" 2>"$work/errors" &
program=$!
window=$(timeout 60 xdotool search --sync --onlyvisible --class ventlock | head -n 1)
expect "the title" Ventlock "$(xdotool getwindowname "$window")"
expect "the name that the desktop entry tells" \
    "$(sed -n 's/^StartupWMClass=//p' "$work"/tree/usr/share/applications/*.desktop)" \
    "$(xprop -id "$window" WM_CLASS | sed -n 's/.* = "\([^"]*\)".*/\1/p')"
xdotool windowactivate --sync "$window" key alt+F4
result=0
wait $program || result=$?
expect "exit code" 0 $result
expect "errors" "" "$(cat "$work/errors" "$work"/tree/usr/lib/ventlock/*.log 2>/dev/null || true)"

# Its log tells the version that the program carries; here it says that the data source is missing.
rm "$ODBCINI"
touch "$ODBCINI"
ventlock 2>"$work/errors" &
program=$!
box=$(timeout 60 xdotool search --sync --onlyvisible --class ventlock | head -n 1)
xdotool windowactivate --sync "$box" key Return
timeout 60 bash -c "until xdotool search --onlyvisible --class ventlock | grep -qvx $box; do :; done" ||
    expect "a window without a database" "to be shown" "not shown"
kill -TERM $program
wait $program || true
version=$(sed -n 's/^project(ventlock VERSION \([0-9.]*\).*/\1/p' ../../../CMakeLists.txt)
expect "version: window" "Ver $version" "$(grep -om 1 'Ver [0-9.]*' "$work"/tree/usr/lib/ventlock/Ventlock.log)"
finish
