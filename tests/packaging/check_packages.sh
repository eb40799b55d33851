#!/usr/bin/env bash
# check_packages.sh <x64|x86> <folder of the programs>
# Fails, telling every breach, when the zip and the installer that are made of the programs do not hold the files they
# are to hold, or when they are not the same the second time.
set -euo pipefail
cd "$(dirname "$0")"
. ./expect.sh
arch=$1 bin=$2
pack=../../packaging/windows/pack.sh
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
export LC_ALL=C

expect "what pack.sh makes" "$work/first/ventlock-2.1.5-windows-$arch.zip
$work/first/ventlock-2.1.5-setup-$arch.exe" "$("$pack" "$bin" "$arch" "$work/first")"

# The book of a build has the times of its making in it.
mkdir "$work/bin"
cp "$bin"/ventlock.exe "$bin"/ventlock-cli.exe "$bin"/Ventlock.hlp "$work/bin"
touch --date=2001-01-01 "$work"/bin/*
"$pack" "$work/bin" "$arch" "$work/second" >/dev/null
expect "the same bytes the second time" "$(cd "$work/first" && sha256sum -- *)" "$(cd "$work/second" && sha256sum -- *)"

zip=$work/first/ventlock-2.1.5-windows-$arch.zip
expect "files of the zip, in their order" "$(sed "s|^|ventlock-2.1.5-$arch/|" content.txt)" "$(unzip -Z1 "$zip")"
mkdir "$work/unpacked"
unzip -q "$zip" -d "$work/unpacked"
top=$work/unpacked/ventlock-2.1.5-$arch
for file in QorStandard.dct Ventlock.dct sample schema; do
    expect "$file" "" "$(diff -rq "../../data/$file" "$top/$file" 2>&1 || true)"
done
expect "README.txt: text" "$(cat ../../packaging/windows/README.txt)" "$(sed 's/\r$//' "$top/README.txt")"
expect "README.txt: lines without CR LF" 0 "$(grep -vc $'\r$' "$top/README.txt" || true)"
expect "README.txt: characters beyond ASCII" 0 "$(grep -cP '[^\x00-\x7f]' "$top/README.txt" || true)"
mkdir "$work/book"
unzip -q "$top/Ventlock.hlp" -d "$work/book"
expect "Ventlock.hlp" "" "$(diff -rq ../../data/help "$work/book" 2>&1 || true)"

7z x -o"$work/setup" "$work/first/ventlock-2.1.5-setup-$arch.exe" >/dev/null
rm -r "$work/setup/"'$PLUGINSDIR' "$work/setup/uninstall.exe"
expect "what the installer holds" "" "$(diff -rq "$top" "$work/setup" 2>&1 || true)"
finish
