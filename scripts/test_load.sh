#!/usr/bin/env bash
# The command line under load, as users get it and at full size: killed 500 times at any moment while it registers, four of
# it at once with 250 devices each on every database, and every one of its system calls on files failing for five reasons.
# VENTLOCK_LOAD sets another number, VENTLOCK_SEED repeats a run. Installs what is missing. Called by test.sh --load. Ends
# with the numbers, and non-zero when a goal is missed.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/packages.sh

need_packages "${build_packages[@]}" "${test_packages[@]}"

export VENTLOCK_LOAD=${VENTLOCK_LOAD:-500}
cmake --preset release -B build/load -DBUILD_TESTING=ON >/dev/null
cmake --build build/load --target load_tests e2e_tests

log=$(mktemp)
trap 'rm -f "$log"' EXIT
failed=0
build/load/tests/e2e/e2e_tests --gtest_brief=1 --gtest_filter='SystemCallFaults.*' | tee "$log" || failed=1
build/load/tests/load/load_tests --gtest_brief=1 | tee -a "$log" || failed=1
for product in postgresql mariadb; do
    VENTLOCK_TEST_DATABASE=$product build/load/tests/load/load_tests --gtest_brief=1 --gtest_filter='TwoAtOnce*' |
        tee -a "$log" || failed=1
done
echo
for number in 'system call faults' kills 'two at once by '{libsqlite3odbc,psqlodbcw,libmaodbc}'.so, '{current,old}; do
    grep "^$number" "$log" || { echo "$number: did not run" && failed=1; }
done
grep '^VENTLOCK_SEED' "$log"
exit $failed
