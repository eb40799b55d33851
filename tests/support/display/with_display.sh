#!/usr/bin/env bash
# with_display.sh [--accessible] <command> [argument]...
# Runs a command on a display of its own: X server with a window manager and a US keyboard, session bus, home and XDG
# folders; nothing of the user's desktop is seen or changed. --accessible: the accessibility bus runs too, so that a
# window can be read and driven from outside. The exit code is the command's; 125 when there is no display to be had.
# What is left of the display ends when the command's process does, however that comes about.
set -euo pipefail

here=$(cd "$(dirname "$0")" && pwd)
accessible=no
if [ "${1:-}" = --accessible ]; then
    accessible=yes
    shift
fi
if [ $# -eq 0 ]; then
    echo "usage: with_display.sh [--accessible] <command> [argument]..." >&2
    exit 125
fi

world=$(mktemp -d "${TMPDIR:-/tmp}/ventlock-display.XXXXXX")
mkdir -m 700 "$world"/{home,config,cache,data,state,run}
mkfifo "$world/answer"

export HOME=$world/home XDG_CONFIG_HOME=$world/config XDG_CACHE_HOME=$world/cache XDG_DATA_HOME=$world/data
export XDG_STATE_HOME=$world/state XDG_RUNTIME_DIR=$world/run
export DBUS_SESSION_BUS_ADDRESS=unix:path=$world/run/bus
export GDK_BACKEND=x11 GDK_SCALE=1 GTK_USE_PORTAL=0 GTK_IM_MODULE=gtk-im-context-simple GSETTINGS_BACKEND=memory
export LC_ALL=C.UTF-8
unset WAYLAND_DISPLAY XAUTHORITY AT_SPI_BUS_ADDRESS NO_AT_BRIDGE
[ "$accessible" = yes ] || export NO_AT_BRIDGE=1
# The sanitizer's own exit code stays as it is: a leak in the program fails it.
export LSAN_OPTIONS=suppressions=$here/lsan.supp:print_suppressions=0${LSAN_OPTIONS:+:$LSAN_OPTIONS}

exec 3<>"$world/answer"
setsid --fork "$here/serve_display.sh" $$ "$world" "$accessible" </dev/null >"$world/log" 2>&1 3>&-
read -r -t 120 -u 3 answer || answer="nothing has been heard of the display within two minutes"
exec 3>&-
case $answer in
    :*) export DISPLAY=$answer ;;
    *)
        echo "with_display.sh: $answer" >&2
        exit 125
        ;;
esac
exec "$@"
