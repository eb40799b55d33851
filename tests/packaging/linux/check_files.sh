#!/usr/bin/env bash
# check_files.sh <folder of the build> <package>
# Fails, telling every breach, when the Debian package does not hold the files it is to hold as it is to hold them, when the
# places that name the version differ, or when it is not the same the second time.
set -euo pipefail
build=$(realpath "$1") package=$(realpath "$2")
cd "$(dirname "$0")"
. ../expect.sh
root=../../..
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
export LC_ALL=C

mkdir "$work/tree"
dpkg-deb --extract "$package" "$work/tree"
tree=$work/tree

# Every file with mode, owner and what a link leads to.
expect "files" "$(cat content.txt)" \
    "$(dpkg-deb --fsys-tarfile "$package" | tar --list --verbose --numeric-owner | grep -v '/$' |
        awk '{ line = $1 " " $2 " " $6; if ($7) line = line " " $7 " " $8; print line }' | sort -k 3)"
expect "folders that are not root's alone to change" "" \
    "$(dpkg-deb --fsys-tarfile "$package" | tar --list --verbose --numeric-owner | grep '/$' |
        grep -v '^drwxr-xr-x 0/0 ' || true)"
expect "links that lead nowhere" "" "$(find "$tree" -xtype l)"
expect "scripts of the package" "control
md5sums" "$(dpkg-deb --ctrl-tarfile "$package" | tar --list | sed 's|^\./||; /^$/d' | sort)"
expect "check sums" "" "$(cd "$tree" && dpkg-deb --info "$package" md5sums | md5sum --check --quiet 2>&1 || true)"

for program in ventlock ventlock-cli; do
    expect "$program: folders that it looks for libraries in" "" \
        "$(readelf --dynamic "$tree/usr/lib/ventlock/$program" | grep -E 'RPATH|RUNPATH' || true)"
    expect "$program: sections for a debugger" "" \
        "$(readelf --sections --wide "$tree/usr/lib/ventlock/$program" | grep -E '\.(symtab|debug_|comment)' || true)"
done

# What is in the source lies in the package as it is.
for file in QorStandard.dct Ventlock.dct schema; do
    expect "$file" "" "$(diff -rq "$root/data/$file" "$tree/usr/share/ventlock/$file" 2>&1 || true)"
done
mkdir "$work/book"
unzip -q "$tree/usr/share/ventlock/Ventlock.hlp" -d "$work/book"
expect "Ventlock.hlp" "" "$(diff -rq "$root/data/help" "$work/book" 2>&1 || true)"
# links <guide>: files that it leads to, beside it.
links() {
    sed -n 's/](/\n](/gp' "$1" | sed -n 's/^](\([^)#]*\)[)#].*/\1/p' | grep -v '^$\|://' | sort -u
}
for guide in "$tree"/usr/share/doc/ventlock/*.md; do
    for file in $(links "$guide"); do
        [ -e "$(dirname "$guide")/$file" ] || expect "link of $(basename "$guide")" "$file" "no such file"
    done
done
expect "links of the guide" "windows.md" "$(links "$tree/usr/share/doc/ventlock/guide.md" | grep -x windows.md || true)"
expect "samples" "" "$(diff -rq "$root/data/sample" "$tree/usr/share/doc/ventlock/examples" 2>&1 || true)"
for icon in "$tree"/usr/share/icons/hicolor/[0-9]*/apps/ventlock.png; do
    size=${icon#"$tree"/usr/share/icons/hicolor/}
    expect "$icon: size" "${size%%/*}" "$(identify -format '%wx%h' "$icon")"
done

# depends <field>: the names in it, one a line.
depends() {
    dpkg-deb --field "$package" "$1" | sed 's/ *([^)]*)//g; s/, */\n/g' | sort
}
expect "packages that the programs cannot do without" "$(printf '%s\n' libodbc2 libodbcinst2 libwxgtk3.2-1)" \
    "$(depends Depends | grep -E '^lib(odbc|wxgtk)')"
expect "packages that come with it unless the user declines" "libsqliteodbc
wx3.2-i18n" "$(depends Recommends)"
expect "packages that the user is told of" "odbc-mariadb
odbc-postgresql" "$(depends Suggests)"

# One version, wherever it is told. The window's box is held to the same numbers by its own test.
version=$(sed -n 's/^project(ventlock VERSION \([0-9.]*\).*/\1/p' $root/CMakeLists.txt)
expect "version: package" "$version-0halvard1" "$(dpkg-deb --field "$package" Version)"
expect "version: changelog" "ventlock ($version-0halvard1)" \
    "$(zcat "$tree/usr/share/doc/ventlock/changelog.Debian.gz" | sed -n '1s/).*/)/p')"
expect "version: software catalogue" "$version" \
    "$(sed -n 's/.*<release version="\([^"]*\)".*/\1/p' "$tree"/usr/share/metainfo/*.metainfo.xml)"

# The program finds its files, also for a user who may not write beside it, and leaves none there.
before=$(cd "$tree" && find . | sort)
chmod -R a+rX "$work"
mkdir -m 777 "$work/home"
# as_user <command>...: an ordinary user's, in a home of his own.
as_user() {
    (cd "$work/home" && env -i HOME="$work/home" PATH="$tree/usr/bin:$PATH" LC_ALL=C.UTF-8 \
        ODBCINI="$work/home/odbc.ini" "${user[@]}" "$@" 2>&1)
}
user=()
[ "$(id -u)" -ne 0 ] || user=(setpriv --reuid=65534 --regid=65534 --clear-groups)
expect "version: program" "ventlock-cli $version ($(getconf LONG_BIT) bit)" "$(as_user ventlock-cli --version)"
expect "a database is made" "$work/home/pyx.db: made with the current schema" \
    "$(as_user ventlock-cli database create --file pyx.db)"
as_user cp "$tree/usr/share/doc/ventlock/examples/Pyx.ini" Pyx.ini
driver=$(odbcinst -q -d | tr -d '[]' | grep -i -m 1 sqlite3)
printf '[PYX]\nDriver=%s\nDatabase=%s\n' "$driver" "$work/home/pyx.db" | as_user tee odbc.ini >"$work/odbc"
expect "an entry is registered" "" "$(as_user ventlock-cli register --quiet --all --dsn PYX --ini-path Pyx.ini \
    --ddinstall-path Ddinstal.ini "$tree/usr/share/doc/ventlock/examples/flow-transmitter.ini" || true)"
expect "what it was registered as" "[000026.0007.01]" \
    "$(tr -d '\r' <"$work/home/Pyx.ini" | grep '^\[000026' || true)"
expect "a data source that is missing" 3 \
    "$(as_user ventlock-cli database info --dsn Nowhere >"$work/refused" || echo $?)"
expect "the log" 1 "$(grep -c 'Data source name not found' "$work/home/.local/state/ventlock/Ventlock.log" 2>&1)"
expect "files beside the programs" "$before" "$(cd "$tree" && find . | sort)"

# Made by who gives new files other rights.
umask 077
expect "what pack.sh makes" "$work/second/$(basename "$package")" \
    "$(env -u SOURCE_DATE_EPOCH $root/packaging/linux/pack.sh "$build" "$work/second")"
expect "the same bytes the second time" "$(sha256sum <"$package")" "$(sha256sum <"$work/second/$(basename "$package")")"
finish
