#!/usr/bin/env bash
# pack.sh <build folder> <output folder>
# Makes the Debian package from built programs and the files beside them, and prints its path. Times are those of the last
# commit, or SOURCE_DATE_EPOCH; the same programs give the same bytes.
set -euo pipefail

if [ $# -ne 2 ] || [ ! -e "$1/CPackConfig.cmake" ]; then
    echo "usage: pack.sh <build folder> <output folder>" >&2
    exit 2
fi
mkdir -p "$2"
build=$(realpath "$1") output=$(realpath "$2")
cd "$(dirname "$0")/../.."
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
. packaging/same_bytes.sh

umask 022
if ! cpack --config "$build/CPackConfig.cmake" -G DEB -B "$work" >"$work/log" 2>&1; then
    cat "$work/log" >&2
    exit 1
fi
for package in "$work"/*.deb; do
    mv "$package" "$output"
    echo "$output/$(basename "$package")"
done
