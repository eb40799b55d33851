#!/usr/bin/env bash
# serve_display.sh <process> <world> <accessible: yes|no>
# Started by with_display.sh, as a session of its own so that killing the command and all its children does not reach it.
# Starts the servers of a display, writes its number (":7"), or what is amiss, into <world>/answer, waits for the end of
# <process>, ends the servers and removes <world>.
set -uo pipefail

process=$1
world=$2
accessible=$3
servers=()

finish() {
    [ ${#servers[@]} -eq 0 ] || kill "${servers[@]}" 2>/dev/null
    wait
    rm -rf "$world"
}
trap finish EXIT
trap 'exit 1' TERM INT HUP

give_up() {
    echo "$1" >"$world/answer"
    wait_for_command
    exit 1
}

wait_for_command() {
    tail --pid="$process" -s 0.1 -f /dev/null
}

# serve <program> [argument]...: starts a server that never outlives this script.
serve() {
    setpriv --pdeathsig=TERM -- "$@" &
    servers+=($!)
}

# await <what> <command> [argument]...: until the command succeeds, as long as the latest server lives; a minute is ample
# on the busiest machine.
await() {
    local what=$1 end=$((SECONDS + 60))
    shift
    until "$@" >/dev/null 2>&1; do
        kill -0 "${servers[-1]}" 2>/dev/null && [ $SECONDS -lt $end ] ||
            give_up "$what does not come up: $(tail -n 3 "$world/log" | tr '\n' ' ')"
        sleep 0.05
    done
}

has_window_manager() {
    xprop -root _NET_SUPPORTING_WM_CHECK | grep -q 'window id'
}

accessibility_bus() {
    dbus-send --session --print-reply=literal --dest=org.a11y.Bus /org/a11y/bus org.a11y.Bus.GetAddress
}

has_registry() {
    local bus
    bus=$(accessibility_bus | tr -d ' ') || return
    dbus-send --bus="$bus" --print-reply --dest=org.freedesktop.DBus /org/freedesktop/DBus \
        org.freedesktop.DBus.GetNameOwner string:org.a11y.atspi.Registry
}

launcher=/usr/libexec/at-spi-bus-launcher
registry=/usr/libexec/at-spi2-registryd
needed=(Xvfb setxkbmap openbox xprop dbus-daemon setpriv)
[ "$accessible" = no ] || needed+=("$launcher" "$registry" dbus-send)
for program in "${needed[@]}"; do
    command -v "$program" >/dev/null || give_up "$program is not installed"
done

# The server itself takes the first display that is free, so that several can start at once.
mkfifo "$world/number"
exec 4<>"$world/number"
serve Xvfb -displayfd 4 -screen 0 2560x1200x24 -nolisten tcp -noreset
read -r -t 60 -u 4 number || give_up "Xvfb does not come up: $(tail -n 3 "$world/log" | tr '\n' ' ')"
exec 4>&-
export DISPLAY=:$number
await "the US keyboard" setxkbmap us
serve openbox --sm-disable
await "the window manager openbox" has_window_manager

serve dbus-daemon --config-file="$(dirname "$0")/session_bus.conf" --address="$DBUS_SESSION_BUS_ADDRESS" --nofork --nopidfile
await "the session bus" test -S "$XDG_RUNTIME_DIR/bus"
if [ "$accessible" = yes ]; then
    serve "$launcher" --launch-immediately
    await "the accessibility bus" accessibility_bus
    serve "$registry"
    await "the accessibility registry" has_registry
fi

echo "$DISPLAY" >"$world/answer"
wait_for_command
