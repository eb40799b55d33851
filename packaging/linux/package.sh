#!/usr/bin/env bash
# package.sh [--output <folder>]
# Makes the Debian package in build/packages or the folder named. Installs what is missing and builds the programs.
set -euo pipefail

output=
case ${1:-} in
    "") ;;
    --output) output=$(realpath -m "${2:?names the folder of the package}") ;;
    *) echo "usage: package.sh [--output <folder>]" >&2 && exit 2 ;;
esac
cd "$(dirname "$0")/../.."
. scripts/packages.sh
output=${output:-$PWD/build/packages}

need_packages "${build_packages[@]}" "${linux_packages[@]}"

echo "Building the programs" >&2
if ! log=$(cmake --preset release 2>&1 && cmake --build --preset release 2>&1); then
    echo "$log" >&2
    exit 1
fi
packaging/linux/pack.sh build/release "$output"
