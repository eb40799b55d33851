#!/usr/bin/env bash
# The window under random use in full: 200 sequences of 200 actions each, with the sanitizers, no action longer than a
# second. Called by test.sh --stress. Installs what is missing. VENTLOCK_SEED=<seed> repeats one sequence, as a failed
# one tells. Ends with the numbers of all sequences.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/packages.sh

need_packages "${build_packages[@]}" "${test_packages[@]}" "${display_packages[@]}"
cmake --preset asan >/dev/null
cmake --build --preset asan --target stress_tests

export VENTLOCK_ACTIONS=${VENTLOCK_ACTIONS:-200} VENTLOCK_LIMIT_MS=1000
play() {
    tests/support/display/with_display.sh build/asan/tests/stress/stress_tests
}
if [ -n "${VENTLOCK_SEED:-}" ]; then
    play
    exit
fi

# Most of the time goes into waiting for the display, so that each processor takes two parts at once.
sequences=200
parts=$((2 * $(nproc)))
first=$(date +%s)
logs=build/asan/tests/stress/logs
rm -rf "$logs"
mkdir -p "$logs"
echo "stress: seeds $first to $((first + sequences - 1)) in $parts parts"
running=()
for ((part = 0; part < parts; ++part)); do
    begin=$((sequences * part / parts))
    end=$((sequences * (part + 1) / parts))
    VENTLOCK_SEED=$((first + begin)) VENTLOCK_SEQUENCES=$((end - begin)) play >"$logs/$part" 2>&1 &
    running+=($!)
done
failed=0
for part in "${!running[@]}"; do
    wait "${running[part]}" && continue
    failed=1
    cat "$logs/$part"
done
awk -F'[ ,()]+' '/^sequences /{ played += $2; asked += $4; actions += $6; checks += $8
    if ($11 + 0 >= longest) { longest = $11; name = $0; sub(/^[^(]*\(/, "", name); sub(/\)$/, "", name) } }
    END { printf "sequences %d of %d, actions %d, checks %d, longest action %d ms (%s)\n",
                 played, asked, actions, checks, longest, name }' "$logs"/*
exit $failed
