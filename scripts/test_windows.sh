#!/usr/bin/env bash
# The Windows programs, made here and run under Wine in a prefix of their own: every test program, the window from
# outside, the packages, and the files they write compared with those of this machine's own programs. Installs what is
# missing. Called by test.sh --windows. Ends with the test runner's own summary.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/packages.sh

need_packages "${build_packages[@]}" "${windows_packages[@]}" "${windows_test_packages[@]}" "${display_packages[@]}"

packaging/windows/libraries.sh x86_64 >/dev/null
cmake --preset windows >/dev/null
cmake --build --preset windows

# What the files of the Windows programs are compared with.
cmake --preset release >/dev/null
cmake --build --preset release --target ventlock-cli ventlock_program_files

export WINEPREFIX=$PWD/build/windows/wine
rm -rf "$WINEPREFIX"
# One server for all tests: else each start of a program brings one up and down.
trap 'wineserver --kill 2>/dev/null || true' EXIT
tests/support/wine/run.sh wineboot --update
wineserver --persistent 2>/dev/null || true
ctest --preset windows --schedule-random --parallel "$(nproc)"
