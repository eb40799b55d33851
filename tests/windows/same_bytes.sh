#!/usr/bin/env bash
# same_bytes.sh <program of this machine> <Windows program>
# Both command lines write the same entries to the same targets. Fails when a byte of a file or a row of the database
# differs.
set -euo pipefail

native=$(realpath "$1")
windows=$(realpath "$2")
run=$(realpath "$(dirname "$0")/../support/wine/run.sh")
world=$(mktemp -d)
trap 'rm -rf "$world"' EXIT
cd "$world"

mkdir system
driver=$(ls -d /usr/lib/*/odbc/libsqlite3odbc.so | grep -v i386)
printf '[SQLite3]\nDescription=SQLite 3\nDriver=%s\n' "$driver" >system/odbcinst.ini
touch odbc.ini system/odbc.ini
export VENTLOCK_TEST_ODBC=$world ODBCINI=$world/odbc.ini ODBCSYSINI=$world/system
export VENTLOCK_REGISTRY=$world/registry.ini XDG_CONFIG_HOME=$world XDG_STATE_HOME=$world LC_ALL=C.UTF-8

entry() { # <section> <manufacturer> <its name> <type> <its name> <revision> [<line>]...
    printf '[%s]\nManID=%s\nManName=%s\nManDesc=%s GmbH\nProtocol=HART\nDevID=%s\nDevName=%s\nDevDesc=%s\n' \
        "$1" "$2" "$3" "$3" "$4" "$5" "$5"
    printf 'DevRev=%s\nDDRev=01\nProtRev=05\nDevRevName=R%s\nDevRevDesc=Revision %s\n' "$6" "$6" "$6"
    printf 'DLLName=Dev\nTemplateName=t\nDevHelp=h\nBlkHelp=b\nTAVVersions=5.0\n'
    shift 6
    [ $# -eq 0 ] || printf '%s\n' "$@"
}
{
    entry One 26 Acme 7 Flow 1
    entry Two 26 Acme 7 Flow 2
    entry Three 1F "Müller & Söhne" 0A "Druck 50 % für Öl" 01
    entry Four 2A "Brien; Ltd" FF "Level = high" 0B
    entry Again 26 Acme 7 "Flow, renamed" 1
} >entries.ini

# A file that hands other than ours have been in: odd lines, mixed line ends, bytes above 127, repeated sections and keys.
odd=';first\r\n\r\nbefore any section\r\n [ Devices ] x\n000026.0007.01=old\n\n\n000026.0007.01=second\n;kept \xe4\xf6\xfc\r'
odd=$odd'[Devices]\r\n000099.0001.01=elsewhere\r\n[000026.0007.01]\r\n  Description = "Old"\r\nno key\r\n\r\n[last]\r\nk=v'

make_targets() { # <folder>
    mkdir "$1"
    printf "$odd" >"$1/odd.ini"
    printf '\xff\xfe' >"$1/wide.ini"
    printf '[Devices]\r\nα=β\r\n' | iconv -f UTF-8 -t UTF-16LE >>"$1/wide.ini"
    : >"$1/empty.ini"
    "$native" database create --file "$1/device.db" --dsn "$1" --quiet
}

write_all() { # <folder> <command>...
    local folder=$1 name
    shift
    for name in odd wide empty new; do
        "$@" register entries.ini --ini --ddinstall --ini-path "$folder/$name.ini" \
            --ddinstall-path "$folder/$name-ddinstal.ini" --quiet
    done
    # One that is there already.
    "$@" register entries.ini --ini --ddinstall --ini-path "$folder/new.ini" --ddinstall-path "$folder/odd-ddinstal.ini" --quiet
    "$@" register entries.ini --db --dsn "$folder" --ini-path "$folder/new.ini" --quiet
}

make_targets here
make_targets there
write_all here "$native"
write_all there "$run" "$windows"

for folder in here there; do
    for table in manufacturers devices; do
        "$native" database list $table --dsn $folder >$folder/$table.txt
    done
    rm $folder/device.db
done
ls here
[ "$(wc -l <here/devices.txt)" -ge 4 ] || {
    echo "too few rows were written:" >&2
    cat here/devices.txt >&2
    exit 1
}
diff -r here there
for name in odd wide new; do
    [ "$(wc -c <here/$name.ini)" -gt 500 ] || {
        echo "$name.ini was not written" >&2
        exit 1
    }
done
echo "the same bytes"
