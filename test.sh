#!/usr/bin/env bash
# Everything that must hold: form, static analysis, and every test with the address and undefined behaviour
# sanitizers. Installs what is missing. Ends with the test runner's own summary. What takes longer or needs more has a
# script of its own, scripts/test_<kind>.sh, which --<kind> runs instead: --windows for the Windows programs under Wine.
set -euo pipefail
cd "$(dirname "$0")"
if [ $# -gt 0 ]; then
    other=scripts/test_${1#--}.sh
    if [[ $1 != --* || ! -x $other ]]; then
        kinds=(scripts/test_*.sh)
        kinds=("${kinds[@]%.sh}")
        echo "usage: ./test.sh [${kinds[*]/#scripts\/test_/--}]" >&2
        exit 2
    fi
    exec "$other" "${@:2}"
fi
. scripts/packages.sh

need_packages "${build_packages[@]}" "${test_packages[@]}" "${display_packages[@]}" "${linux_packages[@]}" \
    "${linux_test_packages[@]}"

mapfile -t sources < <(git ls-files --cached --others --exclude-standard 'src/*.cpp' 'src/*.h' 'tests/*.cpp' 'tests/*.h')
echo "clang-format: ${#sources[@]} files"
clang-format --dry-run -Werror "${sources[@]}"

cmake --preset asan >/dev/null
cmake --build --preset asan

# What the programs are made of; headers are looked at with the files that include them. Several files are read as one:
# most of the time goes into the headers of libraries, which are read once for all of them. Test programs are built with
# the same warnings, but the test library's headers would make them the longest part of this run.
cmake --preset tidy >/dev/null
mapfile -t units < <(sed -n 's/^ *"file": "\(.*\)",\?$/\1/p' build/tidy/compile_commands.json)
echo "clang-tidy: ${#units[@]} groups of files"
# GCC's own warning options mean nothing to clang.
printf '%s\n' "${units[@]}" | xargs -P "$(nproc)" -n 1 \
    clang-tidy -p build/tidy --quiet --checks=-bugprone-suspicious-include --extra-arg=-Wno-unknown-warning-option 2> >(grep -v 'warnings\? generated' >&2)

ctest --preset asan --schedule-random --parallel "$(nproc)"
