#!/usr/bin/env bash
# test_coverage.sh [--report]
# Which lines and branches of core, db, files, entry and platform the tests run. docs/coverage.md names the lines that no
# test runs, with the reason; what else is not run, or run after all, fails. --report: only looks at the latest run again.
# Called by test.sh --coverage.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/packages.sh

need_packages "${build_packages[@]}" "${test_packages[@]}" "${display_packages[@]}" python3 gcovr

build=build/coverage
if [ "${1:-}" != --report ]; then
    cmake --preset coverage >/dev/null
    cmake --build --preset coverage
    find $build -name '*.gcda' -delete
    # Whole programs: tests one by one would count the same lines again. The programs that tests start count as well,
    # some of them as another user, who must be able to write down what he counted.
    chmod -R a+rwX $build
    (umask 0 && ctest --preset coverage --parallel "$(nproc)" --tests-regex '\.shuffled|window_e2e' &&
        $build/tests/e2e/e2e_tests --gtest_brief=1)
fi

# Branches: without those that the compiler makes for exceptions.
gcovr --root . --object-directory $build --exclude-throw-branches --exclude-unreachable-branches \
    --filter 'src/(core|db|files|entry|platform)/' -j "$(nproc)" \
    --json $build/coverage.json --html-details $build/coverage.html $build >/dev/null
exec /usr/bin/python3 scripts/coverage_report.py $build/coverage.json docs/coverage.md
