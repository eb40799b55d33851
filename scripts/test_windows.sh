#!/usr/bin/env bash
# The Windows programs, made here and run under Wine in a prefix of their own: every test program, the window from
# outside, the packages, and the files they write compared with those of this machine's own programs. Installs what is
# missing. Called by test.sh --windows. Ends with the test runner's own summary.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/packages.sh

need_packages "${build_packages[@]}" "${windows_packages[@]}" "${windows_test_packages[@]}" "${display_packages[@]}"

# The programs of 32 bits are tested where this machine takes packages of that word size (dpkg --add-architecture i386),
# which Wine needs for them; else they are only looked into.
i386_packages=(wine32:i386 libodbc2:i386 libodbcinst2:i386 libsqliteodbc:i386)
runs_32_bit() {
    dpkg --print-foreign-architectures | grep -qx i386 || return
    need_packages "${i386_packages[@]}" >/dev/null 2>&1
}

# build <preset> <word size> [<option>]...
build() {
    packaging/windows/libraries.sh "$2" >/dev/null
    cmake --preset "$1" "${@:3}" >/dev/null
    cmake --build --preset "$1"
}

# run_tests <preset>: in prefixes of their own, which are made anew.
run_tests() {
    export WINEPREFIX=$PWD/build/$1/wine
    rm -rf "$WINEPREFIX"*
    # One server for all programs: else each start brings one up and down.
    trap 'wineserver --kill 2>/dev/null || true' EXIT
    tests/support/wine/run.sh wineboot --update
    wineserver --persistent 2>/dev/null || true
    ctest --preset "$1" --schedule-random --parallel "$(nproc)"
    wineserver --kill 2>/dev/null || true
}

# What the files of the Windows programs are compared with.
cmake --preset release >/dev/null
cmake --build --preset release --target ventlock-cli ventlock_program_files

if runs_32_bit; then
    build windows32 i686 -DBUILD_TESTING=ON
    run_tests windows32
else
    echo "The 32-bit programs are made and looked into, but not run: this machine has no Wine of 32 bits."
    build windows32 i686 -DBUILD_TESTING=OFF
    tests/packaging/check_programs.sh i686 "$PWD/build/windows32/bin"
    tests/packaging/check_packages.sh x86 "$PWD/build/windows32/bin"
fi
build windows x86_64
run_tests windows
