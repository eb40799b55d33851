#!/usr/bin/env bash
# Everything that must hold: form, static analysis, and every test with the address and undefined behaviour
# sanitizers. Installs what is missing. Ends with the test runner's own summary.
set -euo pipefail
cd "$(dirname "$0")"
. scripts/packages.sh

need_packages "${build_packages[@]}" "${test_packages[@]}"

mapfile -t sources < <(git ls-files --cached --others --exclude-standard 'src/*.cpp' 'src/*.h' 'tests/*.cpp' 'tests/*.h')
echo "clang-format: ${#sources[@]} files"
clang-format --dry-run -Werror "${sources[@]}"

cmake --preset asan >/dev/null
cmake --build --preset asan

# A header has no entry of its own in the list of commands; it is looked at with the files that include it.
mapfile -t units < <(printf '%s\n' "${sources[@]}" | grep '\.cpp$' | grep -v '/win32/')
echo "clang-tidy: ${#units[@]} files"
printf '%s\n' "${units[@]}" | xargs -P "$(nproc)" -n 4 clang-tidy -p build/asan --quiet --extra-arg=-Wno-unknown-warning-option 2> >(grep -v 'warnings\? generated' >&2)

ctest --preset asan --schedule-random --parallel "$(nproc)"
