#!/usr/bin/env bash
# check_programs.sh <x86_64|i686> <folder of the programs>
# Fails, telling every breach, when a Windows program does not carry what the system reads out of it, or leans on a DLL
# that is not the system's own.
set -euo pipefail
cd "$(dirname "$0")"
. ./expect.sh
target=$1-w64-mingw32 bin=$2
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

system_dlls='(ADVAPI32|COMCTL32|COMDLG32|GDI32|GDIPLUS|IMM32|KERNEL32|MSIMG32|MSVCRT|ODBC32|ODBCCP32|OLE32|OLEACC|OLEAUT32|'
system_dlls+='OLEDLG|RPCRT4|SHELL32|SHLWAPI|USER32|UXTHEME|VERSION|WINMM|WINSPOOL|WS2_32)\.(DLL|DRV)'

# pictures <folder>: what is in it, a picture a line.
pictures() {
    (cd "$1" && sha256sum -- *)
}
mkdir "$work/drawn"
icotool --extract --output="$work/drawn" ../../packaging/windows/ventlock.ico
expect "ventlock.ico: sizes" "ventlock_1_16x16x32.png
ventlock_2_24x24x32.png
ventlock_3_32x32x32.png
ventlock_4_48x48x32.png
ventlock_5_64x64x32.png
ventlock_6_256x256x32.png" "$(ls "$work/drawn")"

# check_program <name> <description> <subsystem>
check_program() {
    local exe=$bin/$1.exe
    expect "$1: subsystem" "$3" "$("$target-objdump" -p "$exe" | sed -n 's/^Subsystem.*(\(.*\))$/\1/p')"
    expect "$1: aware of terminal servers" TERMINAL_SERVICE_AWARE \
        "$("$target-objdump" -p "$exe" | grep -o TERMINAL_SERVICE_AWARE)"
    expect "$1: DLLs that are not the system's" "" \
        "$("$target-objdump" -p "$exe" | sed -n 's/^\tDLL Name: //p' | grep -vixE "$system_dlls" || true)"
    expect "$1: manifest" "$(cat ../../packaging/windows/program.manifest)" "$(wrestool --extract --raw --type=24 "$exe")"
    expect "$1: number of manifests" 1 "$(wrestool --list --type=24 "$exe" | wc -l)"

    # The icon whose name comes first is the one that the system shows.
    local first
    first=$(wrestool --list --type=14 "$exe" | sed -n "s/.*--name='\([^']*\)'.*/\1/p" | LC_ALL=C sort | head -n 1)
    rm -rf "$work/icon"
    mkdir "$work/icon"
    wrestool --extract --type=14 --name="$first" "$exe" >"$work/ventlock.ico"
    icotool --extract --output="$work/icon" "$work/ventlock.ico"
    expect "$1: icon" "$(pictures "$work/drawn")" "$(pictures "$work/icon")"

    expect "$1: version" "1 VERSIONINFO
 FILEVERSION 2, 1, 0, 5
 PRODUCTVERSION 2, 1, 0, 5
 FILEFLAGSMASK 0x3f
 FILEOS 0x40004
 FILETYPE 0x1
BEGIN
  BLOCK \"StringFileInfo\"
  BEGIN
    BLOCK \"040904B0\"
    BEGIN
      VALUE \"CompanyName\", \"Halvard Systems\"
      VALUE \"FileDescription\", \"$2\"
      VALUE \"FileVersion\", \"2.1.0.5\"
      VALUE \"InternalName\", \"$1\"
      VALUE \"LegalCopyright\", \"Copyright Halvard Systems\"
      VALUE \"OriginalFilename\", \"$1.exe\"
      VALUE \"ProductName\", \"Ventlock\"
      VALUE \"ProductVersion\", \"2.1.5\"
    END
  END
  BLOCK \"VarFileInfo\"
  BEGIN
    VALUE \"Translation\", 0x409, 1200
  END
END" "$("$target-windres" --input-format=coff --output-format=rc "$exe" | sed -n '/VERSIONINFO/,/^END/p')"
}

check_program ventlock "Ventlock - registers device resources with Tav" "Windows GUI"
check_program ventlock-cli "Ventlock command line" "Windows CUI"

# The comparison above says only that the manifest is the written one.
manifest=$(tr -d '\r\n' <../../packaging/windows/program.manifest)
for setting in ">PerMonitorV2, PerMonitor</dpiAwareness>" ">true/pm</dpiAware>" ">true</longPathAware>" 'level="asInvoker"' \
    'name="Microsoft.Windows.Common-Controls" version="6.0.0.0"' '<supportedOS Id="{8e0f7a12-bfb3-4fe8-b9a5-48fd50a15a9a}"/>'; do
    expect "manifest: $setting" "$setting" "$(grep -oF "$setting" <<<"$manifest")"
done
# It would change the code page that files without a mark are read in.
expect "manifest: the system's own code page" "" "$(grep -o activeCodePage <<<"$manifest" || true)"
finish
