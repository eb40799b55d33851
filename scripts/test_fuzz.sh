#!/usr/bin/env bash
# Looks for inputs that break the rules of tests/fuzz: builds every target for clang's fuzzer and runs each for so many
# seconds (60 unless told), as many at a time as there are cores. Installs what is missing. Called by test.sh --fuzz. Ends
# with what each target did; an input that was found lies in build/fuzz/findings/<target>. The corpora of the source stay
# as they are: new inputs gather in build/fuzz/corpus.
#     test_fuzz.sh [seconds [target...]]      SEED=n repeats the random choices of an earlier run
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/packages.sh

seconds=${1:-60}
shift || true
[[ $seconds =~ ^[1-9][0-9]*$ ]] || { echo "usage: $0 [seconds [target...]]" >&2; exit 2; }
seed=${SEED:-$((RANDOM * 32768 + RANDOM + 1))}

need_packages cmake ninja-build unixodbc-dev clang libclang-rt-dev llvm

cmake --preset fuzz >/dev/null
cmake --build --preset fuzz

targets=("$@")
if [ ${#targets[@]} -eq 0 ]; then
    for program in build/fuzz/tests/fuzz/fuzz_*; do targets+=("${program##*/fuzz_}"); done
fi

# fuzz <target>: its output goes to build/fuzz/logs, its result is the fuzzer's.
fuzz() {
    local program=build/fuzz/tests/fuzz/fuzz_$1 words=tests/fuzz/dictionaries/$1.dict options=()
    [ ! -f "$words" ] || options=(-dict="$words")
    rm -rf "build/fuzz/findings/$1"
    mkdir -p "build/fuzz/corpus/$1" "build/fuzz/findings/$1"
    # The time limit stands behind the fuzzer's own, which a target that hangs within one input would not reach.
    # What it had of a processor is told as well: on a busy machine that is less than the time that has passed.
    TIMEFORMAT='cpu_seconds: %0U'
    { time timeout $((seconds + 60)) "$program" "${options[@]}" -seed="$seed" -max_total_time="$seconds" -max_len=4096 \
        -timeout=10 -rss_limit_mb=2048 -print_final_stats=1 -artifact_prefix="build/fuzz/findings/$1/" \
        "build/fuzz/corpus/$1" "tests/fuzz/corpus/$1"; } >"build/fuzz/logs/$1.txt" 2>&1
}
export -f fuzz
export seconds seed

mkdir -p build/fuzz/logs
echo "Fuzzing ${#targets[@]} targets for $seconds s each, seed $seed"
failed=0
printf '%s\n' "${targets[@]}" | xargs -P "$(nproc)" -I{} bash -c 'fuzz {}' || failed=1

# last <pattern> <log>: the number behind the pattern where it stands last.
last() { grep -o "$1[0-9]*" "$2" | tail -n 1 | grep -o '[0-9]*$' || echo -; }

printf '%-16s %8s %12s %8s %8s %8s %9s\n' target cpu/s executions exec/s corpus edges findings
for target in "${targets[@]}"; do
    log=build/fuzz/logs/$target.txt
    findings=$(find "build/fuzz/findings/$target" -type f | wc -l)
    printf '%-16s %8s %12s %8s %8s %8s %9s\n' "$target" "$(last 'cpu_seconds: ' "$log")" "$(last 'number_of_executed_units: ' "$log")" \
        "$(last 'average_exec_per_sec: *' "$log")" "$(last 'corp: ' "$log")" "$(last 'cov: ' "$log")" "$findings"
    [ "$findings" -eq 0 ] || { failed=1; grep -m 1 -A 1 -E 'Broken rule|ERROR|runtime error' "$log" | cut -c 1-400; }
done
[ $failed -eq 0 ] || echo "A target failed; its whole output is in build/fuzz/logs." >&2
exit $failed
