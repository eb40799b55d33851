"""run.py <build folder> [<work>...]

Runs the benchmarks: first for the time, then each native candidate once under callgrind for its instructions. Prints the
tables, and writes them into docs/performance.md when all works have run. Exits with 1 when a result is wrong.
"""

import json
import os
import pathlib
import re
import subprocess
import sys
import tempfile

import report

SOURCE = pathlib.Path(__file__).resolve().parent
WINDOW_LIBRARIES = re.compile(r"wx|gtk|gdk|X11|wayland", re.IGNORECASE)
UNCOUNTED = {"configparser", "crudini"}  # minutes under callgrind, and about an interpreter


def filter_of(works):
    return "^(" + "|".join(works) + ")/"


def measure(program, works, results):
    """The run for the time. True when all results are right."""
    ended = subprocess.run(
        [
            program,
            "--benchmark_filter=" + filter_of(works),
            "--benchmark_enable_random_interleaving=true",
            "--benchmark_report_aggregates_only=false",
            "--benchmark_display_aggregates_only=true",
            f"--benchmark_out={results}",
            "--benchmark_out_format=json",
        ],
        stdout=subprocess.DEVNULL,
        check=False,
    )
    return ended.returncode == 0


def names_of(program, works):
    listed = subprocess.run(
        [program, "--benchmark_list_tests=true", "--benchmark_filter=" + filter_of(works)],
        stdout=subprocess.PIPE,
        text=True,
        check=True,
    )
    return [line for line in listed.stdout.splitlines() if line]


def count(program, name):
    """Instructions of one round of a candidate: those of its programs, or of its part of the harness's own process."""
    with tempfile.TemporaryDirectory() as folder:
        callgrind = ["valgrind", "--quiet", "--tool=callgrind"]
        children = [*callgrind, "--trace-children=yes", f"--callgrind-out-file={folder}/%p"]
        subprocess.run(
            [
                *callgrind,
                "--collect-atstart=no",
                f"--callgrind-out-file={folder}/harness",
                program,
                "--benchmark_filter=^" + "/".join(report.key_of(name)) + "/",
            ],
            env={**os.environ, "VENTLOCK_BENCH_PREFIX": " ".join(children), "VENTLOCK_BENCH_ROUNDS": "1"},
            stdout=subprocess.DEVNULL,
            check=True,
        )
        totals = (re.search(r"^(?:totals|summary): (\d+)", file.read_text(errors="replace"), re.MULTILINE)
                  for file in pathlib.Path(folder).iterdir())
        instructions = sum(int(total[1]) for total in totals if total)
    if instructions == 0:
        raise RuntimeError(f"nothing was counted for {name}")
    return instructions


def window_libraries(program):
    """What the dynamic linker loads for a program that belongs to a window."""
    listed = subprocess.run(["ldd", program], stdout=subprocess.PIPE, text=True, check=True)
    return [line.split()[0] for line in listed.stdout.splitlines() if WINDOW_LIBRARIES.search(line.split()[0])]


def main():
    build = pathlib.Path(sys.argv[1]).resolve()
    goals = json.loads((SOURCE / "goals.json").read_text())
    known = [work["name"] for work in goals["works"]]
    works = sys.argv[2:] or known
    if unknown := [work for work in works if work not in known]:
        print(f"no such work: {', '.join(unknown)}; there are: {', '.join(known)}", file=sys.stderr)
        return 2
    program = str(build / "bench/ventlock_bench")
    results = build / "results.json"

    is_right = measure(program, works, results)
    counts = {}
    for name in names_of(program, works):
        key = report.key_of(name)
        if key[2] not in UNCOUNTED and key[1] != "odd":
            counts[key] = count(program, name)
    if found := window_libraries(build / "bin/ventlock-cli"):
        print(f"ventlock-cli loads {', '.join(found)}", file=sys.stderr)
        is_right = False

    folder = os.environ.get("VENTLOCK_BENCH_FOLDER") or build / "workplace"
    tables = report.tables(goals, works, json.loads(results.read_text()), counts, folder)
    print(tables)
    if works == known:
        report.write(SOURCE.parent / "docs", tables)
    if not is_right:
        print("A result is wrong; see above.", file=sys.stderr)
    return 0 if is_right else 1


if __name__ == "__main__":
    sys.exit(main())
