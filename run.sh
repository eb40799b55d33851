#!/usr/bin/env bash
# Builds Ventlock and opens its window on an embedded device database in a workspace folder of its own. Without a display
# it registers the sample entry there from the command line; run again it shows that nothing is doubled. The workspace is
# ~/ventlock-workspace, or what VENTLOCK_WORKSPACE names; nothing of the user outside it is touched: data sources and
# settings of this run live in it too.
set -euo pipefail
cd "$(dirname "$0")"
. scripts/packages.sh

need_packages "${build_packages[@]}"
echo "Building the release; the first time takes some minutes ..."
if [ -t 1 ]; then
    cmake --preset release >/dev/null
    cmake --build --preset release # on a terminal it tells how far it is, in one line
elif ! log=$(cmake --preset release 2>&1 && cmake --build --preset release 2>&1); then
    echo "$log" >&2
    exit 1
fi

workspace=${VENTLOCK_WORKSPACE:-$HOME/ventlock-workspace}
mkdir -p "$workspace"
workspace=$(cd "$workspace" && pwd)
export ODBCINI=$workspace/odbc.ini VENTLOCK_REGISTRY=$workspace/registry.ini
export XDG_CONFIG_HOME=$workspace XDG_STATE_HOME=$workspace
touch "$ODBCINI"
cli=build/release/bin/ventlock-cli

if [ ! -e "$workspace/pyx.db" ]; then
    "$cli" database create --file "$workspace/pyx.db" --dsn PYX
fi
[ -e "$workspace/Pyx.ini" ] || cp data/sample/Pyx.ini "$workspace/Pyx.ini"
"$cli" settings set INIPath "$workspace/Pyx.ini" --quiet
"$cli" settings set DDInstallPath "$workspace/Ddinstal.ini" --quiet

if [ -n "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ]; then
    echo "Opening the window on the database and the files in $workspace."
    exec build/release/bin/ventlock
fi

before=$(mktemp -d)
trap 'rm -rf "$before"' EXIT
cp "$workspace"/*.ini "$before"

echo
echo "Registering data/sample/flow-transmitter.ini:"
"$cli" register data/sample/flow-transmitter.ini --all

for table in manufacturers devices; do
    echo
    echo "Rows now, $table:"
    "$cli" database list "$table"
done
for file in Pyx.ini Ddinstal.ini; do
    echo
    old=$before/$file
    [ -e "$old" ] || old=/dev/null
    if changes=$(diff -u --strip-trailing-cr --label "$file, before" --label "$file, now" "$old" "$workspace/$file"); then
        echo "$file: unchanged"
    else
        echo "$changes"
    fi
done
echo
echo "All of it is in $workspace; run this again to see that nothing is doubled."
