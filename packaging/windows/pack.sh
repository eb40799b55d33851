#!/usr/bin/env bash
# pack.sh <folder of the programs> <x64|x86> <output folder>
# Makes the portable zip and the installer of one word size from built programs and the files beside them, and prints
# both paths. Times are those of the last commit, or SOURCE_DATE_EPOCH; the same programs give the same bytes.
set -euo pipefail

if [ $# -ne 3 ] || [ ! -e "$1/ventlock.exe" ]; then
    echo "usage: pack.sh <folder of the programs> <x64|x86> <output folder>" >&2
    exit 2
fi
case $2 in
    x64) strip=x86_64-w64-mingw32-strip ;;
    x86) strip=i686-w64-mingw32-strip ;;
    *) echo "pack.sh: the word size is x64 or x86, not $2" >&2 && exit 2 ;;
esac
mkdir -p "$3"
bin=$(realpath "$1") arch=$2 output=$(realpath "$3")
cd "$(dirname "$0")/../.."

version=$(sed -n 's/^project(ventlock VERSION \([0-9.]*\).*/\1/p' CMakeLists.txt)
IFS=. read -r major minor patch <<<"$version"
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
. packaging/same_bytes.sh

top=$work/package/ventlock-$version-$arch # both word sizes may be unpacked side by side
mkdir -p "$top"
"$strip" -o "$top/ventlock.exe" "$bin/ventlock.exe"
"$strip" -o "$top/ventlock-cli.exe" "$bin/ventlock-cli.exe"
cp -r data/QorStandard.dct data/Ventlock.dct data/schema data/sample "$top"
sed 's/$/\r/' packaging/windows/README.txt >"$top/README.txt"

bind_book "$bin/Ventlock.hlp" "$top/Ventlock.hlp"
set_times "$top"

name=$output/ventlock-$version-windows-$arch.zip
zip_folder "$work/package" "$name"
echo "$name"

# What the installer puts where, and what the uninstaller takes away: the same files, one by one.
{
    echo "!macro InstallFiles"
    find "$top" -type d -printf '%P\n' | sort | while read -r folder; do
        echo "SetOutPath \"\$INSTDIR${folder:+\\${folder//\//\\}}\""
        find "$top/$folder" -maxdepth 1 -type f | sort | sed 's/.*/File "&"/'
    done
    echo "!macroend"
    echo "!macro RemoveFiles"
    find "$top" -type f -printf '%P\n' | sort | sed 's|/|\\|g; s/.*/Delete "$INSTDIR\\&"/'
    echo "!macroend"
    echo "!macro RemoveFolders"
    find "$top" -mindepth 1 -type d -printf '%P\n' | sort -r | sed 's|/|\\|g; s/.*/RMDir "$INSTDIR\\&"/'
    echo "!macroend"
} >"$work/files.nsh"

name=$output/ventlock-$version-setup-$arch.exe
size=$(find "$top" -type f -printf '%s\n' | awk '{ sum += $1 } END { print int((sum + 1023) / 1024) }')
makensis -V2 -WX -INPUTCHARSET UTF8 -DARCH="$arch" -DVERSION="$version" -DFILE_VERSION="$major.$minor.0.$patch" \
    -DFILES="$work/files.nsh" -DSIZE="$size" -DOUTPUT="$work/ventlock-setup.exe" packaging/windows/ventlock.nsi >&2
mv "$work/ventlock-setup.exe" "$name"
echo "$name"
