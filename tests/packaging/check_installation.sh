#!/usr/bin/env bash
# check_installation.sh <folder of the programs> <package_probe.exe>
# Installs, upgrades and uninstalls the 64-bit programs under Wine, on a machine of its own, and fails, telling every
# breach, when one of these does not do exactly what it is to do. Zip and installer are made anew.
set -euo pipefail
bin=$(realpath "$1") probe=$(realpath "$2")
cd "$(dirname "$0")"
. ./expect.sh
export LC_ALL=C
work=$(mktemp -d)
export WINEPREFIX=$work/prefix
drive=$WINEPREFIX/drive_c

leave() {
    wineserver --kill || true
    wineserver --wait || true
    rm -rf "$work"
}
trap leave EXIT

# run <program> [argument]...: its output without carriage returns; the exit code is the program's.
run() {
    timeout 300 ../support/wine/run.sh "$@" | tr -d '\r'
}

# code <program> [argument]...: its exit code.
code() {
    local result=0
    run "$@" >/dev/null || result=$?
    echo $result
}

files() {
    (cd "$1" && find . -mindepth 1 ! -type d -printf '%P\n' | sort)
}

# hold <name> <program>: has the program running until it is released.
declare -A holders inputs
hold() {
    local input answer=
    mkfifo "$work/$1.in" "$work/$1.out"
    ../support/wine/run.sh "$probe" hold "$2" <"$work/$1.in" >"$work/$1.out" &
    holders[$1]=$!
    exec {input}>"$work/$1.in"
    inputs[$1]=$input
    read -r -t 60 answer <"$work/$1.out" || true
    expect "$2 is held" held "${answer%$'\r'}"
}

release() {
    local input=${inputs[$1]}
    echo >&"$input"
    wait "${holders[$1]}"
    exec {input}>&-
    rm "$work/$1.in" "$work/$1.out"
}

uninstall_key='HKLM\Software\Microsoft\Windows\CurrentVersion\Uninstall\Ventlock'
settings='SOFTWARE\Halvard Systems\TAVToolkit\Ventlock'
settings_access='0 2 000f003f S-1-5-32-544
0 2 000f003f S-1-5-18
0 2 0002003f S-1-5-32-545'

# machine_keys: the keys and values that programs have on the machine.
machine_keys() {
    run reg export 'HKLM\Software' 'C:\keys.reg' /y >/dev/null
    iconv -f UTF-16 -t UTF-8 "$drive/keys.reg" | tr -d '\r'
    rm "$drive/keys.reg"
}

../../packaging/windows/pack.sh "$bin" x64 "$work/packages" >/dev/null
setup=$work/packages/ventlock-2.1.5-setup-x64.exe

unzip -q "$work/packages/ventlock-2.1.5-windows-x64.zip" -d "$work/un packed"
expect "zip: the program runs" "ventlock-cli 2.1.5 (64 bit)" \
    "$(run "$work/un packed/ventlock-2.1.5-x64/ventlock-cli.exe" --version)"

# A setting of a program that was used before it was installed.
run reg add "HKLM\\$settings\\Settings" /v ManName /d Acme /f >/dev/null
wineserver --wait
machine_keys >"$work/keys_before"
files "$drive" >"$work/files_before"

# Wine forgets a key's access list when its last program ends: one stays.
hold system 'C:\windows\system32\cmd.exe'

# The installer takes the rest of its line for the folder; here the blanks of a path part arguments.
expect "setup: exit code" 0 "$(code "$setup" /S '/D=C:\Program' 'Files\Vent' Lock)"
here="$drive/Program Files/Vent Lock"
expect "setup: files" "$( (cat content.txt && echo uninstall.exe) | sort)" "$(files "$here")"
expect "setup: the program runs" "ventlock-cli 2.1.5 (64 bit)" \
    "$(run 'C:\Program Files\Vent Lock\ventlock-cli.exe' --version)"
shortcut='ProgramData/Microsoft/Windows/Start Menu/Programs/Ventlock.lnk'
expect "setup: files elsewhere" "$shortcut" \
    "$(files "$drive" | grep -v '^Program Files/Vent Lock/' | comm -13 "$work/files_before" -)"
expect "setup: start menu entry" 'C:\Program Files\Vent Lock\ventlock.exe' \
    "$(grep -aoF 'C:\Program Files\Vent Lock\ventlock.exe' <(tr -d '\0' <"$drive/$shortcut") | head -n 1)"

# uninstall_entry <folder>: what the system's list of programs is to say.
uninstall_entry() {
    local size
    size=$(cd "$work/un packed/ventlock-2.1.5-x64" && find . -type f -printf '%s\n' |
        awk '{ sum += $1 } END { printf "0x%x", int((sum + 1023) / 1024) }')
    echo "
HKEY_LOCAL_MACHINE\\Software\\Microsoft\\Windows\\CurrentVersion\\Uninstall\\Ventlock
    DisplayIcon    REG_SZ    $1\\ventlock.exe
    DisplayName    REG_SZ    Ventlock
    DisplayVersion    REG_SZ    2.1.5
    EstimatedSize    REG_DWORD    $size
    InstallLocation    REG_SZ    $1
    NoModify    REG_DWORD    0x1
    NoRepair    REG_DWORD    0x1
    Publisher    REG_SZ    Halvard Systems
    QuietUninstallString    REG_SZ    \"$1\\uninstall.exe\" /S
    UninstallString    REG_SZ    \"$1\\uninstall.exe\""
}
expect "setup: uninstall entry" "$(uninstall_entry 'C:\Program Files\Vent Lock')" "$(run reg query "$uninstall_key")"

expect "setup: access to the settings" "$settings_access" "$(run "$probe" access "$settings")"
expect "setup: access to settings that were there" "$settings_access" "$(run "$probe" access "$settings\\Settings")"

# While a program runs nothing is installed over it and nothing is taken away.
for program in ventlock ventlock-cli; do
    hold program "C:\\Program Files\\Vent Lock\\$program.exe"
    before=$(cd "$here" && find . -type f -exec sha256sum {} + | sort)
    expect "setup over the running $program: exit code" 3 "$(code "$setup" /S)"
    expect "setup elsewhere beside the running $program: exit code" 3 "$(code "$setup" /S '/D=C:\Else where')"
    expect "uninstaller under the running $program: exit code" 3 \
        "$(code 'C:\Program Files\Vent Lock\uninstall.exe' /S '_?=C:\Program' 'Files\Vent' Lock)"
    expect "files while $program runs" "$before" "$(cd "$here" && find . -type f -exec sha256sum {} + | sort)"
    expect "files elsewhere while $program runs" "" "$(files "$drive/Else where" 2>/dev/null || true)"
    release program
done

# An upgrade to another place: nothing of the earlier version stays, what the user has put beside it does.
echo "[Files]" >"$here/ventlock.ini"
expect "upgrade: exit code" 0 "$(code "$setup" /S '/D=C:\Tools')"
expect "upgrade: files that stay" ventlock.ini "$(files "$here")"
expect "upgrade: files" "$( (cat content.txt && echo uninstall.exe) | sort)" "$(files "$drive/Tools")"
expect "upgrade: uninstall entry" "$(uninstall_entry 'C:\Tools')" "$(run reg query "$uninstall_key")"
rm -r "$here"

# Without a folder named, the place of the earlier version is taken.
rm "$drive/Tools/README.txt"
expect "repair: exit code" 0 "$(code "$setup" /S)"
expect "repair: files" "$( (cat content.txt && echo uninstall.exe) | sort)" "$(files "$drive/Tools")"

# The uninstaller goes on in a copy of itself in the folder for temporary files, where it cannot delete itself: the end of
# all programs is waited for.
expect "uninstaller: exit code" 0 "$(code 'C:\Tools\uninstall.exe' /S)"
release system
wineserver --wait
expect "uninstaller: folder" "" "$(find "$drive/Tools" 2>/dev/null || true)"
expect "uninstaller: files that are new" "users/$(id -un)/Temp/~nsu1.tmp/Un.exe" \
    "$(files "$drive" | comm -13 "$work/files_before" -)"
expect "uninstaller: files that are gone" "" "$(files "$drive" | comm -23 "$work/files_before" -)"
expect "uninstaller: keys of the machine" "$(cat "$work/keys_before")" "$(machine_keys)"
finish
