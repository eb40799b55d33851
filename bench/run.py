"""run.py <build folder> [<work>...]

Runs the benchmarks: for the time on the disk, once more in memory, where flushing costs nothing, and each native candidate
once under callgrind for its instructions. Prints the tables, and writes them and the plot into docs when all works have
run. Exits with 1 when a result is wrong.
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
MEMORY = pathlib.Path("/dev/shm")
CALLGRIND = ["valgrind", "--quiet", "--tool=callgrind"]
UNCOUNTED = {"configparser", "crudini", "pyodbc"}  # minutes under callgrind, and about an interpreter


def filter_of(works):
    return "^(" + "|".join(works) + ")/"


def measure(program, works, folder, results, is_long):
    """A run for the time with the files in a folder, with what takes minutes if it is long. True when all results are
    right."""
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
        env={**os.environ, "VENTLOCK_BENCH_FOLDER": str(folder), "VENTLOCK_BENCH_LONG": "1" if is_long else "0"},
        stdout=subprocess.DEVNULL,
        stderr=subprocess.PIPE,
        text=True,
        check=False,
    )
    # The library's own words on its build and on the machine's clock stand there, too.
    print("".join(re.findall(r"^\S+/\S+/.*: .*\n", ended.stderr, re.MULTILINE)), end="", file=sys.stderr)
    return ended.returncode == 0


def names_of(program, works):
    listed = subprocess.run(
        [program, "--benchmark_list_tests=true", "--benchmark_filter=" + filter_of(works)],
        stdout=subprocess.PIPE,
        text=True,
        check=True,
    )
    return [line for line in listed.stdout.splitlines() if line]


def run_counted(program, works_filter, prefix, variables):
    subprocess.run(
        [*prefix, program, f"--benchmark_filter={works_filter}"],
        env={**os.environ, "VENTLOCK_BENCH_FOLDER": str(MEMORY), "VENTLOCK_BENCH_ROUNDS": "1", **variables},
        stdout=subprocess.DEVNULL,
        stderr=subprocess.DEVNULL,
        check=True,
    )


def counted(file):
    """(label, instructions) of a file that callgrind has written."""
    text = file.read_text(errors="replace")
    label = re.search(r"^desc: Trigger: Client Request: (.*)", text, re.MULTILINE)
    total = re.search(r"^(?:totals|summary): (\d+)", text, re.MULTILINE)
    return label[1] if label else "", int(total[1]) if total else 0


def count_in_process(program, works):
    """Instructions of one round of each candidate that runs in the harness's own process."""
    with tempfile.TemporaryDirectory() as folder:
        prefix = [*CALLGRIND, "--collect-atstart=no", f"--callgrind-out-file={folder}/out"]
        run_counted(program, filter_of(works), prefix, {})
        labelled = dict(counted(file) for file in pathlib.Path(folder).iterdir())
    return {report.key_of(label): instructions for label, instructions in labelled.items() if label}


def is_counted(work, key):
    return key[1] in work.get("counted", [key[1]]) and key[1] != "odd" and key[2] not in UNCOUNTED


def count_programs(program, name, is_timed_by_program):
    """Instructions of the programs in one round of a candidate; of those that take their time themselves no others."""
    with tempfile.TemporaryDirectory() as folder:
        prefix = [*CALLGRIND, "--trace-children=yes", f"--callgrind-out-file={folder}/%p"]
        if is_timed_by_program:
            prefix.append("--instr-atstart=no")
        run_counted(program, "^" + "/".join(report.key_of(name)) + "/", [], {"VENTLOCK_BENCH_PREFIX": " ".join(prefix)})
        dumps = [counted(file) for file in pathlib.Path(folder).iterdir()]
        instructions = sum(count for label, count in dumps if label or not is_timed_by_program)
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
    folder = pathlib.Path(os.environ.get("VENTLOCK_BENCH_FOLDER") or build / "workplace")
    folder.mkdir(exist_ok=True)
    runs = {}
    is_right = True
    on_files = [work["name"] for work in goals["works"] if work["name"] in works and not work.get("in_window")]
    for name, place, chosen in (("disk", folder, works), ("memory", MEMORY, on_files)):
        if not chosen:
            runs[name] = {"benchmarks": []}
            continue
        print(f"Measuring in {place} ...", file=sys.stderr)
        results = build / f"{name}.json"
        is_right = measure(program, chosen, place, results, is_long=name == "disk") and is_right
        runs[name] = json.loads(results.read_text())

    print("Counting instructions ...", file=sys.stderr)
    by_name = {work["name"]: work for work in goals["works"]}
    in_process = [name for name in works if by_name[name].get("in_process")]
    counts = count_in_process(program, in_process) if in_process else {}
    for name in names_of(program, works):
        key = report.key_of(name)
        if key[0] not in in_process and is_counted(by_name[key[0]], key):
            counts[key] = count_programs(program, name, by_name[key[0]].get("timed_by_program"))
    if found := window_libraries(build / "bin/ventlock-cli"):
        print(f"ventlock-cli loads {', '.join(found)}", file=sys.stderr)
        is_right = False

    tables = report.tables(goals, works, runs, counts, folder)
    print(tables)
    if works == known:
        report.write(SOURCE.parent / "docs", tables)
        report.plot(SOURCE.parent / "docs/images/growth.svg", goals, runs["disk"])
    if not is_right:
        print("A result is wrong; see above.", file=sys.stderr)
    return 0 if is_right else 1


if __name__ == "__main__":
    sys.exit(main())
