# shellcheck shell=bash
# Sourced by the checks of the packages, which have their folder for scratch files in `work`.

breaches=0

# expect <what> <expected> <found>: tells the difference, and has the check fail at its end.
expect() {
    if ! diff -u --label expected --label found <(printf '%s\n' "$2") <(printf '%s\n' "$3") >"$work/difference"; then
        echo "BREACH: $1"
        cat "$work/difference"
        breaches=$((breaches + 1))
    fi
}

# finish: ends the check.
finish() {
    [ $breaches -eq 0 ] && exit 0
    echo "$breaches breaches"
    exit 1
}
