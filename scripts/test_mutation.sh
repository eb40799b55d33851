#!/usr/bin/env bash
# test_mutation.sh [<count> [<seed>]]
# Whether the tests see a mistake: a sample of small changes, each made in a copy of the sources behind a switch, and the
# tests run with one at a time. docs/mutation.md tells what is changed and what came of it. Called by test.sh --mutation.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/packages.sh

need_packages "${build_packages[@]}" "${test_packages[@]}" "${display_packages[@]}" python3 python3-clang-14

work=$PWD/build/mutation
source=$work/source
build=$work/build
mkdir -p "$source"
# Only what differs is written, the changes of the latest run included: what has not changed is not built again.
git ls-files --cached --others --exclude-standard | sort >"$work/files"
(cd "$source" && find . -type f -printf '%P\n' | sort | comm -13 "$work/files" - | xargs -r -d '\n' rm)
while read -r file; do
    cmp -s "$file" "$source/$file" || install -D --mode "$(stat -c %a "$file")" "$file" "$source/$file"
done <"$work/files"

# Warnings are for the unchanged sources.
cmake -S "$source" -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Debug \
    -DCMAKE_CXX_FLAGS="-O0 -g0 -w -include $PWD/scripts/mutation/Mutant.h" >/dev/null
PYTHONDONTWRITEBYTECODE=1 exec /usr/bin/python3 scripts/mutation/mutate.py "$source" "$build" "${1:-200}" "${2:-1}"
