#!/usr/bin/env bash
# bench.sh [<work>...]
# How long the programs' works take beside others that do the same, in one run side by side: bench/goals.json names the
# works and the goals. All works by default, and the table in docs/performance.md is then written anew; of some works it
# is only printed. VENTLOCK_BENCH_ROUNDS sets how often each candidate runs (21), VENTLOCK_BENCH_FOLDER where the files
# lie (build/bench/workplace). Installs what is missing. Ends with non-zero for a wrong result, never for a slow one.
set -euo pipefail
cd "$(dirname "$0")"
. scripts/packages.sh

need_packages "${build_packages[@]}" "${display_packages[@]}" "${bench_packages[@]}" \
    "${windows_packages[@]}" "${windows_test_packages[@]}"

packaging/windows/libraries.sh x86_64 >/dev/null
cmake --preset bench-windows >/dev/null
cmake --build --preset bench-windows --target ventlock ventlock-cli ventlock_program_files window_limit
export VENTLOCK_BENCH_WINDOWS=$PWD/build/bench-windows
cmake --preset bench >/dev/null
cmake --build --preset bench --target ventlock_bench
export PYTHONDONTWRITEBYTECODE=1
exec tests/support/display/with_display.sh /usr/bin/python3 bench/run.py build/bench "$@"
