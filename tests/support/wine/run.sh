#!/usr/bin/env bash
# run.sh <program.exe> [argument]...
# Runs a Windows program under Wine, with a driver manager's folder of its own: the SQLite driver is known there, no data
# source is. The prefix is WINEPREFIX; one that is not there is made. Its folders of the desktop and of documents lie in the
# prefix, so that they last as long as it does: without them Wine's file dialogs crash. A program that crashes ends at once:
# no box waits for a button. The exit code is the program's.
set -euo pipefail

: "${WINEPREFIX:?names the folder of the prefix that Wine works in}"
export WINEDEBUG=${WINEDEBUG:--all} WINEDLLOVERRIDES=${WINEDLLOVERRIDES:-mscoree,mshtml=}
if [ ! -e "$WINEPREFIX/system.reg" ]; then
    mkdir -p "$WINEPREFIX/home"
    HOME=$WINEPREFIX/home DISPLAY="" wineboot --init >/dev/null
    DISPLAY="" wine reg add 'HKCU\Software\Wine\WineDbg' /v ShowCrashDialog /t REG_DWORD /d 0 /f >/dev/null
    wineserver --wait
fi

if [ -z "${VENTLOCK_TEST_ODBC:-}" ]; then
    VENTLOCK_TEST_ODBC=$(mktemp -d)
    trap 'rm -rf "$VENTLOCK_TEST_ODBC"' EXIT
    export VENTLOCK_TEST_ODBC
    mkdir "$VENTLOCK_TEST_ODBC/system"
    driver=$(ls -d /usr/lib/*/odbc/libsqlite3odbc.so | grep -v i386)
    driver32=$(ls -d /usr/lib/i386-*/odbc/libsqlite3odbc.so 2>/dev/null || true)
    printf '[SQLite3]\nDescription=SQLite 3\nDriver=%s\nDriver64=%s\n' "${driver32:-$driver}" "$driver" \
        >"$VENTLOCK_TEST_ODBC/system/odbcinst.ini"
    touch "$VENTLOCK_TEST_ODBC/odbc.ini" "$VENTLOCK_TEST_ODBC/system/odbc.ini"
    export ODBCINI=$VENTLOCK_TEST_ODBC/odbc.ini ODBCSYSINI=$VENTLOCK_TEST_ODBC/system
fi
wine "$@"
