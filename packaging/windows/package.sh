#!/usr/bin/env bash
# package.sh [--output <folder>]
# Makes the packages for Windows, a portable zip and an installer for each word size, in build/packages or the folder
# named. Installs what is missing and builds the programs.
set -euo pipefail

output=
case ${1:-} in
    "") ;;
    --output) output=$(realpath -m "${2:?names the folder of the packages}") ;;
    *) echo "usage: package.sh [--output <folder>]" >&2 && exit 2 ;;
esac
cd "$(dirname "$0")/../.."
. scripts/packages.sh
output=${output:-$PWD/build/packages}

need_packages "${windows_packages[@]}"

# build <word size> <preset>: the programs alone, in a folder of their own.
build() {
    local folder=build/package-$1 log
    packaging/windows/libraries.sh "$1" >/dev/null
    echo "Building the programs for $1" >&2
    if ! log=$(cmake --preset "$2" -B "$folder" -DBUILD_TESTING=OFF 2>&1 && cmake --build "$folder" 2>&1); then
        echo "$log" >&2
        exit 1
    fi
}

build x86_64 windows
packaging/windows/pack.sh build/package-x86_64/bin x64 "$output"
build i686 windows32
packaging/windows/pack.sh build/package-i686/bin x86 "$output"
